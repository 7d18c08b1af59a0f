#pragma once
// The talk between the program and the keeper of its clipboard, over one stream socket. Both sides are built together
// and run on one machine, so numbers travel in the machine's own form. Used by KeeperClipboard and by romika-clipboard.
// Nothing here opens, reads or writes the socket, and no text of the clipboard is ever put anywhere else.
//
// The keeper says `hello` once it is connected to the X server; its payload is its process id (std::int32_t).
// Then each request of the program gets at most one answer with the request's sequence number:
//     write (payload: the text)  -> done | failed     done: the X server has confirmed the ownership
//     clear                      -> done | failed     done: the X server has confirmed that nobody owns the clipboard
//     read                       -> text | failed     payload of text: the text, empty if the clipboard holds no text
// Texts are UTF-8. A request whose deadline is over when the keeper comes to it is not carried out, so that a write
// that was already reported as failed cannot replace what somebody copied afterwards. A new request cancels a reading
// that is still under way. The end of the stream means that the program has ended.

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

enum class KeeperMessageKind : std::uint32_t { hello = 1, write, read, clear, done, failed, text };

/// One message in either direction.
struct KeeperMessage {
    KeeperMessageKind kind{};
    /// Ties an answer to its request; requests count from 1. 0 in `hello`.
    std::uint64_t sequence = 0;
    /// End of the caller's patience, in nanoseconds of the monotonic clock, which all processes share. 0 in answers.
    std::int64_t deadline = 0;
    std::string payload{};
};

/// The longest payload in bytes. Longer texts are refused on either side, which bounds the keeper's memory.
inline constexpr std::size_t maxKeeperPayload = 64u << 20;

/// The bytes of a message as they go over the socket. The payload must not be longer than `maxKeeperPayload`.
std::string framed(const KeeperMessage &message);

/// Puts messages together from the pieces in which a stream delivers them.
class KeeperMessageReader {
public:
    /// Takes the next bytes of the stream; what follows a broken header is ignored.
    void append(std::string_view bytes);
    /// The oldest complete message, which is handed out once; nothing if none is complete.
    std::optional<KeeperMessage> next();
    /// True once a header was no header of ours or announced too long a payload. The stream is useless then.
    bool isBroken() const { return broken_; }

private:
    void startMessage();

    std::string header_;
    KeeperMessage current_;
    std::size_t missing_ = 0;
    std::deque<KeeperMessage> complete_;
    bool broken_ = false;
};
