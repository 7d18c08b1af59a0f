#include "reader/wave_stream.h"

#include <algorithm>

namespace {

constexpr std::size_t mostHeadBytes = 4096;

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value |= std::uint32_t{static_cast<unsigned char>(bytes[at + i])} << (8 * i);
    return value;
}

std::string littleEndian(std::uint32_t value, std::size_t count) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFF);
    return bytes;
}

} // namespace

bool WaveReader::take(std::string_view bytes, std::string& samples) {
    if (!inSamples_) {
        head_ += bytes;
        if (!readChunks())
            return false;
        if (!inSamples_)
            return head_.size() <= mostHeadBytes;
        bytes = head_;
    }
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(left_, bytes.size()));
    samples += bytes.substr(0, count);
    left_ -= count;
    head_.clear();
    return true;
}

/// Reads the head as far as it is there; false if it is of the wrong kind. When the samples begin, only they are left.
bool WaveReader::readChunks() {
    if (head_.size() < 12)
        return std::string_view("RIFF").starts_with(std::string_view(head_).substr(0, 4));
    if (!head_.starts_with("RIFF") || head_.compare(8, 4, "WAVE") != 0)
        return false;
    std::size_t at = 12;
    while (head_.size() >= at + 8) {
        const std::string_view kind = std::string_view(head_).substr(at, 4);
        const std::uint32_t size = number(head_, at + 4, 4);
        const std::size_t inside = at + 8;
        if (kind == "data") {
            left_ = size;
            head_.erase(0, inside);
            inSamples_ = rate_ > 0;
            return inSamples_;
        }
        if (size > mostHeadBytes)
            return false;
        if (head_.size() < inside + size)
            return true;
        if (kind == "fmt ") {
            const bool isKnown = size >= 16 && number(head_, inside, 2) == 1 && number(head_, inside + 2, 2) == 1 &&
                                 number(head_, inside + 14, 2) == 16;
            if (!isKnown)
                return false;
            rate_ = number(head_, inside + 4, 4);
        }
        at = inside + size + size % 2;
    }
    return true;
}

std::string waveHead(std::uint32_t rate, std::uint32_t bytes) {
    return "RIFF" + littleEndian(bytes + 36, 4) + "WAVEfmt " + littleEndian(16, 4) + littleEndian(1, 2) +
           littleEndian(1, 2) + littleEndian(rate, 4) + littleEndian(rate * 2, 4) + littleEndian(2, 2) +
           littleEndian(16, 2) + "data" + littleEndian(bytes, 4);
}
