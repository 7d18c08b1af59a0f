#pragma once
// A fuzzer's bytes as a row of choices. What is taken behind their end is 0, so every input makes a case.

#include "platform/text.h"

#include <algorithm>
#include <cstdint>

/// The bytes as a text of any units, the higher byte of each first.
inline Text unitsOf(BytesView bytes) {
    const auto valueAt = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(bytes[at])); };
    Text units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        units += static_cast<char16_t>(valueAt(i) << 8 | valueAt(i + 1));
    }
    return units;
}

/// Takes choices from the front of an input.
class FuzzInput {
public:
    /// The bytes outlive the object.
    explicit FuzzInput(BytesView bytes) : left_(bytes) {}

    /// The next byte.
    unsigned byte() {
        const BytesView taken = bytes(1);
        return taken.empty() ? 0U : static_cast<unsigned char>(taken.front());
    }
    /// 0..below-1, from the next four bytes, the lowest first. `below` is at least 1.
    std::uint32_t number(std::uint32_t below) {
        std::uint32_t value = 0;
        for (int place = 0; place < 32; place += 8) {
            value |= static_cast<std::uint32_t>(byte()) << place;
        }
        return value % below;
    }
    /// The next `count` bytes, fewer at the end.
    BytesView bytes(std::size_t count) {
        const BytesView taken = left_.substr(0, std::min(count, left_.size()));
        left_.remove_prefix(taken.size());
        return taken;
    }
    /// All that is left.
    BytesView rest() { return bytes(left_.size()); }

private:
    BytesView left_;
};
