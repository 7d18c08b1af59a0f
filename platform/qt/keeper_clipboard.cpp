#include "platform/qt/keeper_clipboard.h"

#include "platform/utf8.h"

#include <chrono>
#include <utility>

using std::chrono::steady_clock;

namespace {

constexpr std::chrono::seconds startPatience{1};
constexpr std::chrono::milliseconds writePatience{240};
// Below the promised 0.1 s, so that the turns of the scheduler have room.
constexpr std::chrono::milliseconds readPatience{92};

} // namespace

KeeperClipboard::KeeperClipboard(std::string keeperPath) : link_(std::move(keeperPath)) {
    link_.prepare(steady_clock::now() + startPatience);
}

ClipboardText KeeperClipboard::read() {
    const auto answer = link_.ask(KeeperMessageKind::read, {}, steady_clock::now() + readPatience);
    if (!answer || answer->kind != KeeperMessageKind::text)
        return {};
    return {true, fromUtf8(answer->payload)};
}

bool KeeperClipboard::write(TextView text) {
    return carriedOut(KeeperMessageKind::write, toUtf8(text));
}

bool KeeperClipboard::clear() {
    return carriedOut(KeeperMessageKind::clear, {});
}

bool KeeperClipboard::carriedOut(KeeperMessageKind kind, std::string payload) {
    const auto answer = link_.ask(kind, std::move(payload), steady_clock::now() + writePatience);
    return answer && answer->kind == KeeperMessageKind::done;
}
