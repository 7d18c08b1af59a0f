#pragma once
// The reading program under test, on a real X server, with a folder of its own for engines, settings and the log.

#include "tests/desktop/support/x_client.h"
#include "tests/reader/engine_folder.h"

#include <chrono>
#include <mutex>
#include <string>
#include <sys/types.h>
#include <vector>

/// The reading program; killed when the object goes if it still runs.
class ReaderProcess {
public:
    /// Starts it with the log of `folder`, the settings "reader.conf" of `folder` and `arguments`, and waits until it
    /// watches the clipboard, unless `display` names no running server.
    explicit ReaderProcess(const EngineFolder& folder, const std::vector<std::string>& arguments = {},
                           const std::string& display = {});
    ~ReaderProcess();
    ReaderProcess(const ReaderProcess&) = delete;
    ReaderProcess& operator=(const ReaderProcess&) = delete;

    pid_t process() const { return process_; }
    /// Waits for its end and gives the exit status, 128 and more for a signal, -1 if it doesn't end in time.
    int waitForEnd(std::chrono::milliseconds patience = std::chrono::seconds(5));
    /// The most memory it has had so far, in KiB.
    long mostMemory() const;

private:
    pid_t process_;
    bool ended_ = false;
};

/// True as soon as the log has `count` lines of that event; false after `patience`.
bool hears(const EngineFolder& folder, const std::string& event, std::size_t count,
           std::chrono::milliseconds patience = std::chrono::seconds(10));
/// True as soon as the log has that line of that event; false after `patience`.
bool hearsText(const EngineFolder& folder, const std::string& event, const std::string& text,
               std::chrono::milliseconds patience = std::chrono::seconds(10));

/// Runs the reading program with `arguments` to its end and gives what it printed; `status` takes the exit status.
std::string outputOfReader(const EngineFolder& folder, const std::string& arguments, int* status = nullptr);

/// Owns the clipboard and hands out one text after the other.
class TextOwner {
public:
    TextOwner();
    /// Puts a text on the clipboard.
    void put(const std::string& text);

private:
    std::mutex mutex_;
    std::string text_;
    ForeignOwner owner_;
};

/// Tells a fake player where to write its news and how to play; see fake_player.cpp.
struct FakePlayer {
    /// `how` is "fast", "real-time", "deaf" (never takes anything) or "broken" (ends at once).
    FakePlayer(const EngineFolder& folder, const std::string& how);
    ~FakePlayer();
};
/// What the fake players of `folder` have told: the words behind each `news`, oldest first.
std::vector<std::string> playerNews(const EngineFolder& folder, const std::string& news);
