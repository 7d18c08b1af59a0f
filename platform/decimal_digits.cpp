#include "platform/decimal_digits.h"

#include "platform/failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace {

/// No double has more significant digits.
constexpr int longestExpansion = 767;

DecimalDigits normalized(DecimalDigits number) {
    const auto first = number.digits.find_first_not_of('0');
    if (first == std::string::npos) {
        return {};
    }
    number.digits.erase(0, first);
    number.point -= static_cast<int>(first);
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    return number;
}

DecimalDigits exactDigits(double value) {
    if (std::isnan(value)) {
        throw RuntimeFailure{FailureKind::impossible};
    }
    if (std::isinf(value)) {
        throw RuntimeFailure{FailureKind::overflow};
    }
    std::array<char, longestExpansion + 16> room;
    const auto end = std::to_chars(room.data(), room.data() + room.size(), std::abs(value),
                                   std::chars_format::scientific, longestExpansion - 1);
    const std::string_view text(room.data(), static_cast<std::size_t>(end.ptr - room.data()));
    const auto mark = text.find('e');
    int exponent = 0;
    std::from_chars(text.data() + mark + (text[mark + 1] == '+' ? 2 : 1), text.data() + text.size(), exponent);
    DecimalDigits number{std::signbit(value), std::string(1, text[0]), exponent + 1};
    number.digits += text.substr(2, mark - 2);
    return normalized(std::move(number));
}

DecimalDigits shortened(double value, int significant) { return rounded(exactDigits(value), significant); }

} // namespace

std::string DecimalDigits::whole() const {
    if (point <= 0) {
        return {};
    }
    std::string result = digits.substr(0, static_cast<std::size_t>(point));
    result.resize(static_cast<std::size_t>(point), '0');
    return result;
}

std::string DecimalDigits::fraction() const {
    if (point <= 0) {
        return std::string(static_cast<std::size_t>(-point), '0') + digits;
    }
    return digits.substr(std::min(digits.size(), static_cast<std::size_t>(point)));
}

DecimalDigits decimalDigits(float value) { return shortened(value, digitsOfSingle); }

DecimalDigits decimalDigits(double value) { return shortened(value, digitsOfDouble); }

DecimalDigits decimalDigits(std::int64_t value) {
    const auto bits = static_cast<std::uint64_t>(value);
    std::array<char, 20> room;
    const auto end = std::to_chars(room.data(), room.data() + room.size(), value < 0 ? 0 - bits : bits);
    std::string digits(room.data(), end.ptr);
    const int point = static_cast<int>(digits.size());
    return normalized({value < 0, std::move(digits), point});
}

DecimalDigits rounded(DecimalDigits number, int count) {
    if (count < 0) {
        return {};
    }
    const auto kept = static_cast<std::size_t>(count);
    if (kept >= number.digits.size()) {
        return number;
    }
    const bool isUp = number.digits[kept] >= '5';
    number.digits.resize(kept);
    if (isUp) {
        while (!number.digits.empty() && number.digits.back() == '9') {
            number.digits.pop_back();
        }
        if (number.digits.empty()) {
            number.digits = "1";
            ++number.point;
        } else {
            ++number.digits.back();
        }
    }
    return normalized(std::move(number));
}
