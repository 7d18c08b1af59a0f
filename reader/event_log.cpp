#include "reader/event_log.h"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace {

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = uninterrupted([&] { return ::write(descriptor, bytes.data(), bytes.size()); });
        if (written <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

void printLine(int descriptor, std::string_view text) {
    // Whoever closed the other end doesn't want to read it.
    static_cast<void>(writeAll(descriptor, std::string(text) + "\n"));
}

EventLog::EventLog(const std::string& path) {
    if (path == "-")
        file_ = Descriptor(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3));
    else if (!path.empty())
        file_ = openNative(path, O_WRONLY | O_CREAT | O_APPEND, 0600);
}

void EventLog::add(std::string_view event, std::string_view text) {
    if (!file_.isOpen())
        return;
    std::string line = std::string(event) + "\t" + std::string(text);
    std::ranges::replace_if(
        line.begin() + static_cast<std::ptrdiff_t>(event.size()) + 1, line.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
    if (!writeAll(file_.number(), line + "\n")) {
        file_ = Descriptor();
        notice("the log can't be written any more. ログに書けなくなりました。");
    }
}

void EventLog::notice(std::string_view text) {
    printLine(STDERR_FILENO, "romika-reader: " + std::string(text));
    add("notice", text);
}
