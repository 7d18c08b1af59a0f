#include "platform/qt/keeper_link.h"

#include "platform/qt/keeper_process.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

using std::chrono::steady_clock;

namespace {

// A keeper that never became ready (no X server, no such program) would not do so a moment later either.
constexpr std::chrono::seconds pauseAfterFailedStart{1};

} // namespace

bool KeeperLink::prepare(TimePoint deadline) {
    if (socket_ < 0 && !start())
        return false;
    // No request has the number 0, so this waits for the greeting, the end of the stream or the deadline.
    while (socket_ >= 0 && process_ == 0 && waitFor(POLLIN, deadline)) {
        receive();
        answerTo(0, TimePoint{});
    }
    return process_ != 0;
}

std::optional<KeeperMessage> KeeperLink::ask(KeeperMessageKind kind, std::string payload, TimePoint deadline) {
    if (payload.size() > maxKeeperPayload)
        return std::nullopt;
    const std::int64_t nanoseconds = std::chrono::nanoseconds(deadline.time_since_epoch()).count();
    const KeeperMessage request{kind, ++sequence_, nanoseconds, std::move(payload)};
    const std::string bytes = framed(request);
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (socket_ < 0 && !start())
            return std::nullopt;
        if (send(bytes, deadline)) {
            if (auto answer = answerTo(request.sequence, deadline))
                return answer;
        }
        if (socket_ >= 0)
            return std::nullopt;
    }
    return std::nullopt;
}

bool KeeperLink::start() {
    const auto now = steady_clock::now();
    if (now < nextStart_)
        return false;
    nextStart_ = now + pauseAfterFailedStart;
    socket_ = startKeeper(path_);
    return socket_ >= 0;
}

void KeeperLink::close() {
    if (socket_ >= 0)
        ::close(socket_);
    socket_ = -1;
    process_ = 0;
    reader_ = {};
}

/// False if not everything was sent. A request sent in part leaves the stream useless, so the talk is ended then.
bool KeeperLink::send(std::string_view bytes, TimePoint deadline) {
    const std::size_t whole = bytes.size();
    while (!bytes.empty()) {
        const ssize_t put = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (put >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(put));
        } else if (errno == EAGAIN) {
            if (!waitFor(POLLOUT, deadline)) {
                if (bytes.size() != whole)
                    close();
                return false;
            }
        } else if (errno != EINTR) {
            close();
            return false;
        }
    }
    return true;
}

/// The answer with this number; nothing at the deadline, or when the keeper has died and the talk is closed.
std::optional<KeeperMessage> KeeperLink::answerTo(std::uint64_t sequence, TimePoint deadline) {
    do {
        while (auto message = reader_.next()) {
            if (message->kind == KeeperMessageKind::hello && message->payload.size() == sizeof(std::int32_t)) {
                std::int32_t process = 0;
                std::memcpy(&process, message->payload.data(), sizeof process);
                process_ = process;
                nextStart_ = {};
            } else if (message->sequence == sequence) {
                return message;
            }
        }
    } while (socket_ >= 0 && waitFor(POLLIN, deadline) && receive());
    return std::nullopt;
}

bool KeeperLink::receive() {
    std::array<char, 1u << 16> buffer;
    const ssize_t got = recv(socket_, buffer.data(), buffer.size(), 0);
    if (got > 0)
        reader_.append({buffer.data(), static_cast<std::size_t>(got)});
    const bool isOver = got == 0 || (got < 0 && errno != EAGAIN && errno != EINTR);
    if (isOver || reader_.isBroken())
        close();
    return socket_ >= 0;
}

/// True when the socket is ready for one of the events, or has ended; false at the deadline.
bool KeeperLink::waitFor(short events, TimePoint deadline) {
    while (true) {
        const auto left = std::chrono::nanoseconds(deadline - steady_clock::now());
        if (left.count() <= 0)
            return false;
        const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
        const timespec timeout{seconds.count(), (left - seconds).count()};
        pollfd watched{socket_, events, 0};
        if (ppoll(&watched, 1, &timeout, nullptr) > 0)
            return true;
    }
}
