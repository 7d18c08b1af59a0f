#pragma once
// The keeper's end of the socket to the program. Driven by the keeper's loop; never waits, and never holds more than
// one longest answer for a program that does not fetch it.

#include "platform/keeper_protocol.h"

#include <optional>
#include <string>

/// The socket to the program.
class ProgramLink {
public:
    /// Takes over a stream socket and makes it non-blocking.
    explicit ProgramLink(int descriptor);
    ~ProgramLink() { close(); }
    ProgramLink(const ProgramLink &) = delete;
    ProgramLink &operator=(const ProgramLink &) = delete;

    /// False once the program has ended, or has sent nonsense.
    bool isOpen() const { return descriptor_ >= 0; }
    /// The socket; -1 once the link is closed.
    int descriptor() const { return descriptor_; }
    /// What to poll the descriptor for.
    short pollEvents() const;
    /// Takes what the program has sent.
    void receive();
    /// The oldest request that was not yet handed out.
    std::optional<KeeperMessage> next() { return reader_.next(); }
    /// Sends a message, as far as the socket takes it now.
    void send(const KeeperMessage &message);
    /// Sends more of what waits to be sent.
    void sendWaiting();

private:
    void close();

    int descriptor_;
    KeeperMessageReader reader_;
    std::string waiting_;
    std::size_t sent_ = 0;
};
