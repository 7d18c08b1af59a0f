#include "tests/desktop/support/clipboard_watcher.h"

#include "tests/desktop/support/processes.h"

#include <algorithm>
#include <poll.h>
#include <xcb/xfixes.h>

ClipboardWatcher::ClipboardWatcher() {
    xcb_connection_t* connection = notices_.raw();
    std::free(xcb_xfixes_query_version_reply(connection, xcb_xfixes_query_version(connection, 5, 0), nullptr));
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_xfixes_select_selection_input(connection, root, notices_.atom("CLIPBOARD"),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    xcb_flush(connection);
    thread_ = std::thread([this] { watch(); });
}

ClipboardWatcher::~ClipboardWatcher() {
    over_ = true;
    thread_.join();
}

void ClipboardWatcher::watch() {
    xcb_connection_t* connection = notices_.raw();
    while (!over_) {
        bool changed = false;
        while (auto* event = xcb_poll_for_event(connection)) {
            // A clipboard without an owner has been cleared: there is nothing to fetch.
            changed = reinterpret_cast<xcb_xfixes_selection_notify_event_t*>(event)->owner != XCB_WINDOW_NONE;
            std::free(event);
        }
        if (changed) {
            const auto answer = fetcher_.fetch("UTF8_STRING");
            const std::lock_guard lock(mutex_);
            texts_.push_back(answer ? answer->bytes : "(nothing)");
        }
        pollfd watched{xcb_get_file_descriptor(connection), POLLIN, 0};
        poll(&watched, 1, 5);
    }
}

std::vector<std::string> ClipboardWatcher::texts() const {
    const std::lock_guard lock(mutex_);
    return texts_;
}

std::size_t ClipboardWatcher::count() const { return texts().size(); }

bool ClipboardWatcher::hears(const std::string& text, std::size_t from) const {
    return becomesTrue(
        [&] {
            const auto all = texts();
            return std::find(all.begin() + static_cast<std::ptrdiff_t>(std::min(from, all.size())), all.end(), text) !=
                   all.end();
        },
        std::chrono::seconds(10));
}
