#include "platform/keeper_protocol.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

struct Header {
    std::uint32_t kind;
    std::uint32_t length;
    std::uint64_t sequence;
    std::int64_t deadline;
};
static_assert(sizeof(Header) == 24, "the header has no padding");

bool isKnown(std::uint32_t kind) {
    return kind >= static_cast<std::uint32_t>(KeeperMessageKind::hello) &&
           kind <= static_cast<std::uint32_t>(KeeperMessageKind::text);
}

} // namespace

std::string framed(const KeeperMessage &message) {
    const Header header{static_cast<std::uint32_t>(message.kind), static_cast<std::uint32_t>(message.payload.size()),
                        message.sequence, message.deadline};
    std::string bytes(sizeof header, '\0');
    std::memcpy(bytes.data(), &header, sizeof header);
    bytes += message.payload;
    return bytes;
}

void KeeperMessageReader::append(std::string_view bytes) {
    while (!bytes.empty() && !broken_) {
        if (missing_ == 0) {
            const std::size_t taken = std::min(bytes.size(), sizeof(Header) - header_.size());
            header_.append(bytes.substr(0, taken));
            bytes.remove_prefix(taken);
            if (header_.size() == sizeof(Header))
                startMessage();
            continue;
        }
        const std::size_t taken = std::min(bytes.size(), missing_);
        current_.payload.append(bytes.substr(0, taken));
        bytes.remove_prefix(taken);
        missing_ -= taken;
        if (missing_ == 0)
            complete_.push_back(std::exchange(current_, {}));
    }
}

void KeeperMessageReader::startMessage() {
    Header header;
    std::memcpy(&header, header_.data(), sizeof header);
    header_.clear();
    broken_ = !isKnown(header.kind) || header.length > maxKeeperPayload;
    if (broken_)
        return;
    current_ = {static_cast<KeeperMessageKind>(header.kind), header.sequence, header.deadline, {}};
    current_.payload.reserve(header.length);
    missing_ = header.length;
    if (missing_ == 0)
        complete_.push_back(std::exchange(current_, {}));
}

std::optional<KeeperMessage> KeeperMessageReader::next() {
    if (complete_.empty())
        return std::nullopt;
    KeeperMessage message = std::move(complete_.front());
    complete_.pop_front();
    return message;
}
