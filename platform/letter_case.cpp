#include "platform/letter_case.h"

#include <algorithm>
#include <array>

namespace {

/// A run of capitals whose small letters lie at a fixed distance.
struct Alphabet {
    char16_t first;
    char16_t last;
    char16_t distance;
};

constexpr std::array<Alphabet, 6> alphabets{{
    {u'A', u'Z', 0x20},
    {0xFF21, 0xFF3A, 0x20}, // full-width Latin
    {0x0391, 0x03A1, 0x20}, // Greek alpha to rho; behind rho stands the final sigma, which has no place of its own
    {0x03A3, 0x03A9, 0x20}, // Greek sigma to omega
    {0x0410, 0x042F, 0x20}, // Cyrillic
    {0x0401, 0x0401, 0x50}, // Cyrillic io
}};

template <typename Fold> Text folded(TextView text, Fold fold) {
    Text result(text);
    std::transform(result.begin(), result.end(), result.begin(), fold);
    return result;
}

} // namespace

char16_t upperCase(char16_t unit) {
    for (const auto& [first, last, distance] : alphabets) {
        if (unit >= first + distance && unit <= last + distance) {
            return static_cast<char16_t>(unit - distance);
        }
    }
    return unit;
}

char16_t lowerCase(char16_t unit) {
    for (const auto& [first, last, distance] : alphabets) {
        if (unit >= first && unit <= last) {
            return static_cast<char16_t>(unit + distance);
        }
    }
    return unit;
}

Text upperCase(TextView text) {
    return folded(text, [](char16_t unit) { return upperCase(unit); });
}

Text lowerCase(TextView text) {
    return folded(text, [](char16_t unit) { return lowerCase(unit); });
}
