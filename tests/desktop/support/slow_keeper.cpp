// A keeper that answers each request only when the next one has come, and the first of them never in time: for testing
// that the program does not mistake a late answer. The text of every answer tells which request it belongs to.

#include "platform/keeper_protocol.h"

#include <array>
#include <unistd.h>

namespace {

void say(const KeeperMessage &message) {
    const std::string bytes = framed(message);
    if (write(0, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        _exit(1);
}

} // namespace

int main() {
    const std::int32_t process = getpid();
    say({KeeperMessageKind::hello, 0, 0, {reinterpret_cast<const char *>(&process), sizeof process}});
    KeeperMessageReader reader;
    std::optional<KeeperMessage> held;
    std::array<char, 4096> buffer;
    while (const ssize_t got = read(0, buffer.data(), buffer.size())) {
        if (got < 0)
            return 1;
        reader.append({buffer.data(), static_cast<std::size_t>(got)});
        while (auto request = reader.next()) {
            if (held) {
                say({KeeperMessageKind::text, held->sequence, 0, "late"});
                say({KeeperMessageKind::text, request->sequence, 0, "in time"});
            }
            held = std::move(request);
        }
    }
    return 0;
}
