#include "platform/keeper/program_link.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr std::size_t mostWaiting = maxKeeperPayload + (1u << 20);

bool isTemporary(int error) {
    return error == EAGAIN || error == EINTR;
}

} // namespace

ProgramLink::ProgramLink(int descriptor) : descriptor_(descriptor) {
    if (fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK) != 0)
        close();
}

void ProgramLink::close() {
    if (isOpen())
        ::close(descriptor_);
    descriptor_ = -1;
}

short ProgramLink::pollEvents() const {
    return static_cast<short>(waiting_.empty() ? POLLIN : POLLIN | POLLOUT);
}

void ProgramLink::receive() {
    std::array<char, 1u << 16> buffer;
    while (isOpen()) {
        const ssize_t got = read(descriptor_, buffer.data(), buffer.size());
        if (got < 0 && isTemporary(errno))
            return;
        if (got > 0)
            reader_.append({buffer.data(), static_cast<std::size_t>(got)});
        if (got <= 0 || reader_.isBroken())
            close();
    }
}

void ProgramLink::send(const KeeperMessage &message) {
    waiting_.erase(0, sent_);
    sent_ = 0;
    waiting_ += framed(message);
    if (waiting_.size() > mostWaiting)
        close();
    sendWaiting();
}

void ProgramLink::sendWaiting() {
    while (isOpen() && sent_ < waiting_.size()) {
        const ssize_t put = write(descriptor_, waiting_.data() + sent_, waiting_.size() - sent_);
        if (put < 0) {
            if (!isTemporary(errno))
                close();
            return;
        }
        sent_ += static_cast<std::size_t>(put);
    }
    waiting_ = {};
    sent_ = 0;
}
