#include "platform/number_reader.h"

#include "platform/failure.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace {

bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

/// Appends the digits from `at` on and returns the position behind them.
std::size_t takeDigits(TextView text, std::size_t at, std::string& number) {
    while (at < text.size() && isDigit(text[at])) {
        number += static_cast<char>(text[at++]);
    }
    return at;
}

/// Appends the exponent that starts at `at`, if one does.
void takeExponent(TextView text, std::size_t at, std::string& number) {
    if (at >= text.size() || !contains(u"eEdD", text.substr(at, 1))) {
        return;
    }
    ++at;
    std::string exponent = "e";
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) {
        exponent += static_cast<char>(text[at++]);
    }
    const auto signLength = exponent.size();
    takeDigits(text, at, exponent);
    if (exponent.size() > signLength) {
        number += exponent;
    }
}

/// Which side a number outside the range of a double lies on. The lengths of the mantissa count too, since a mantissa
/// of many zeros can outweigh its exponent.
bool isTooLarge(const std::string& number) {
    const auto mark = number.find('e');
    const std::string mantissa = number.substr(0, mark);
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto first = mantissa.find_first_of("123456789");
    const double magnitude = static_cast<double>(point) - static_cast<double>(first);
    if (mark == std::string::npos) {
        return magnitude > 0;
    }
    const char* digits = number.data() + mark + 1 + (number[mark + 1] == '+' ? 1 : 0);
    long exponent = 0;
    if (std::from_chars(digits, number.data() + number.size(), exponent).ec == std::errc::result_out_of_range) {
        return number[mark + 1] != '-';
    }
    return magnitude + static_cast<double>(exponent) > 0;
}

template <typename Integer> Integer narrowed(double value) {
    const double nearest = std::nearbyint(value);
    // Written so that a value that is no number fails too.
    if (!(nearest >= std::numeric_limits<Integer>::min() && nearest <= std::numeric_limits<Integer>::max())) {
        throw RuntimeFailure{FailureKind::overflow};
    }
    return static_cast<Integer>(nearest);
}

} // namespace

double Val(TextView text) {
    std::size_t at = std::min(text.find_first_not_of(u' '), text.size());
    bool isNegative = false;
    if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) {
        isNegative = text[at++] == u'-';
    }
    std::string number;
    at = takeDigits(text, at, number);
    if (at < text.size() && text[at] == u'.') {
        number += '.';
        at = takeDigits(text, at + 1, number);
    }
    if (number.find_first_of("123456789") == std::string::npos) {
        return 0;
    }
    takeExponent(text, at, number);
    double value = 0;
    const auto end = number.data() + number.size();
    if (std::from_chars(number.data(), end, value).ec == std::errc::result_out_of_range) {
        if (isTooLarge(number)) {
            throw RuntimeFailure{FailureKind::overflow};
        }
        return 0;
    }
    return isNegative ? -value : value;
}

std::int16_t roundTo16(double value) { return narrowed<std::int16_t>(value); }

std::int32_t roundTo32(double value) { return narrowed<std::int32_t>(value); }

float roundToSingle(double value) {
    if (!(std::abs(value) <= static_cast<double>(std::numeric_limits<float>::max()))) {
        throw RuntimeFailure{FailureKind::overflow};
    }
    return static_cast<float>(value);
}
