#include "reader/clipboard_watch.h"

#include <xcb/xfixes.h>

namespace {

constexpr std::chrono::milliseconds patience{1500};
// Nothing that is to be heard is as long as this, and what is longer shall not cost the memory.
constexpr std::size_t mostBytes = 8u << 20;

template <class T> std::unique_ptr<T, FreeDeleter> owned(T* answer) {
    return std::unique_ptr<T, FreeDeleter>(answer);
}

} // namespace

std::unique_ptr<ClipboardWatch> ClipboardWatch::open() {
    auto x = XConnection::open();
    if (!x)
        return nullptr;
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(x->raw(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0)
        return nullptr;
    // The server must be asked for its version before it serves the extension.
    if (!owned(xcb_xfixes_query_version_reply(x->raw(), xcb_xfixes_query_version(x->raw(), 5, 0), nullptr)))
        return nullptr;
    const auto changeEvent = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(x->raw(), x->window(), x->atoms().clipboard,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    if (!x->settle())
        return nullptr;
    return std::unique_ptr<ClipboardWatch>(new ClipboardWatch(std::move(x), changeEvent));
}

ClipboardWatch::ClipboardWatch(std::unique_ptr<XConnection> x, std::uint8_t changeEvent)
    : x_(std::move(x)), changeEvent_(changeEvent), reading_(*x_, mostBytes) {}

bool ClipboardWatch::becomeTheReader() {
    // A selection belongs to the desktop rather than to a folder, and the server takes it back from the dead.
    const xcb_atom_t office = x_->atom("_ROMIKA_READER");
    const auto time = x_->serverTime();
    if (!time)
        return false;
    xcb_grab_server(x_->raw());
    const auto holder = x_->selectionOwner(office);
    const bool isFree = holder && *holder == XCB_WINDOW_NONE;
    if (isFree)
        xcb_set_selection_owner(x_->raw(), x_->window(), office, *time);
    xcb_ungrab_server(x_->raw());
    return x_->settle() && isFree;
}

std::optional<TimePoint> ClipboardWatch::deadline() const {
    return reading_.isUnderWay() ? std::optional(reading_.deadline()) : std::nullopt;
}

void ClipboardWatch::work(TimePoint now) {
    if (reading_.isUnderWay() && reading_.deadline() <= now)
        reading_.cancel();
    // Sending may bring in events, and those do not wake up the loop's poll.
    do {
        x_->flush();
    } while (handleEvents(now));
}

/// True if there was an event.
bool ClipboardWatch::handleEvents(TimePoint now) {
    bool any = false;
    while (const XEvent event = x_->nextEvent()) {
        any = true;
        if (kindOf(*event) == changeEvent_)
            ownerChanged(as<xcb_xfixes_selection_notify_event_t>(*event).owner, now);
        else
            reading_.handle(*event);
    }
    return any;
}

void ClipboardWatch::ownerChanged(xcb_window_t owner, TimePoint now) {
    if (owner == XCB_WINDOW_NONE)
        reading_.cancel();
    else
        reading_.start(owner, now + patience);
}
