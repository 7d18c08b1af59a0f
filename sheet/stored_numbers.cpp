#include "sheet/stored_numbers.h"

#include <algorithm>
#include <cstring>

void appendNumber(Bytes& bytes, std::uint64_t number) {
    for (std::size_t i = 0; i < numberLength; ++i) {
        bytes += static_cast<char>(number >> (8 * i) & 0xFF);
    }
}

std::uint64_t numberAt(BytesView bytes, std::size_t offset) {
    std::uint64_t number = 0;
    for (std::size_t i = numberLength; i > 0; --i) {
        number = number << 8 | static_cast<unsigned char>(bytes[offset + i - 1]);
    }
    return number;
}

std::uint64_t fingerprintOf(BytesView bytes, std::uint64_t before) {
    std::uint64_t fingerprint = before;
    for (std::size_t at = 0; at < bytes.size(); at += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, std::min(sizeof word, bytes.size() - at));
        fingerprint = (fingerprint ^ word) * 0x9E3779B97F4A7C15;
        fingerprint ^= fingerprint >> 29;
    }
    return fingerprint;
}
