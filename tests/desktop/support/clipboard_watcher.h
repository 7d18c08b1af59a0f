#pragma once
// A program that reads the clipboard as a reading program does: told of each new text by the X server, it fetches the
// text at once and remembers it. It runs on a thread and a connection of its own.

#include "tests/desktop/support/x_client.h"

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// Remembers every text that appears on the clipboard while the object lives.
class ClipboardWatcher {
public:
    ClipboardWatcher();
    ~ClipboardWatcher();
    ClipboardWatcher(const ClipboardWatcher&) = delete;
    ClipboardWatcher& operator=(const ClipboardWatcher&) = delete;

    /// The texts so far, oldest first; "(nothing)" where the owner did not hand its text out.
    std::vector<std::string> texts() const;
    /// Waits until a text equal to `text` has come after the first `from` texts; false after ten seconds.
    bool hears(const std::string& text, std::size_t from = 0) const;
    /// Number of texts so far.
    std::size_t count() const;

private:
    void watch();

    XClient notices_; ///< is told of new owners
    XClient fetcher_; ///< fetches, so that no notice is lost meanwhile
    mutable std::mutex mutex_;
    std::vector<std::string> texts_;
    std::atomic<bool> over_ = false;
    std::thread thread_;
};
