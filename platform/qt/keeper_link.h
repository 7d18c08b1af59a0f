#pragma once
// The program's end of the socket to the keeper of the clipboard: it starts the keeper, asks it, and starts it again
// when it has died. Used by KeeperClipboard alone. No call takes longer than the deadline it is given.

#include "platform/keeper_protocol.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>

/// A keeper and the talk with it.
class KeeperLink {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// `path` is the keeper's program. Nothing is started yet.
    explicit KeeperLink(std::string path) : path_(std::move(path)) {}
    /// Ends the talk. The keeper goes on serving other programs as long as the clipboard is ours.
    ~KeeperLink() { close(); }
    KeeperLink(const KeeperLink &) = delete;
    KeeperLink &operator=(const KeeperLink &) = delete;

    /// Starts the keeper if none runs, and waits until it is ready. False if it is not by the deadline.
    bool prepare(TimePoint deadline);
    /// Sends a request and waits for its answer; a keeper that has died is started again, once in a call. Nothing if
    /// there is no answer by the deadline, and also if the payload is longer than `maxKeeperPayload`.
    std::optional<KeeperMessage> ask(KeeperMessageKind kind, std::string payload, TimePoint deadline);
    /// The process id of the keeper, 0 as long as none has said that it is ready.
    pid_t process() const { return process_; }

private:
    bool start();
    void close();
    bool send(std::string_view bytes, TimePoint deadline);
    std::optional<KeeperMessage> answerTo(std::uint64_t sequence, TimePoint deadline);
    bool receive();
    bool waitFor(short events, TimePoint deadline);

    std::string path_;
    int socket_ = -1;
    KeeperMessageReader reader_;
    std::uint64_t sequence_ = 0;
    pid_t process_ = 0;
    TimePoint nextStart_{};
};
