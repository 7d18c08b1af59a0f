#include "platform/number_text.h"

#include "platform/decimal_digits.h"

#include <array>
#include <charconv>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t printZone = 14;
/// The point of 1E-15. Quotients of everyday size must stay above the exponent form, since an expression can't take in
/// an exponent with a minus.
constexpr int leastPlainPoint = -14;
/// Digits before the point above which a whole number would turn to the exponent form: more than it can have.
constexpr int digitsOfWholeNumber = 20;

Text wide(std::string_view ascii) { return Text(ascii.begin(), ascii.end()); }

/// Digits, point and exponent of a number without its sign. `mostWhole`: digits before the point that are still
/// written plainly.
Text magnitudeText(const DecimalDigits& number, int mostWhole, TextView zeroBeforePoint) {
    if (number.digits.empty()) {
        return u"0";
    }
    if (number.point > mostWhole || number.point < leastPlainPoint) {
        const DecimalDigits mantissa{false, number.digits, 1};
        const int exponent = number.point - 1;
        return magnitudeText(mantissa, mostWhole, zeroBeforePoint) + (exponent < 0 ? u"E-" : u"E+") +
               fixedDigits(exponent, std::abs(exponent) > 99 ? 3 : 2);
    }
    const Text whole = wide(number.whole());
    const Text fraction = wide(number.fraction());
    return (whole.empty() ? Text(zeroBeforePoint) : whole) + (fraction.empty() ? u"" : u".") + fraction;
}

Text plainText(const DecimalDigits& number, int mostWhole) {
    return (number.isNegative ? u"-" : u"") + magnitudeText(number, mostWhole, u"0");
}

Text signedText(const DecimalDigits& number, int mostWhole) {
    return (number.isNegative ? u"-" : u" ") + magnitudeText(number, mostWhole, u"");
}

/// Written for each of a million records, in lists of their numbers.
void appendSigned(Bytes& line, std::int64_t value) {
    std::array<char, 24> room{};
    const char* end = std::to_chars(room.data(), room.data() + room.size(), value).ptr;
    if (value >= 0) {
        line += ' ';
    }
    line.append(static_cast<const char*>(room.data()), end);
}

} // namespace

Text plainNumber(std::int64_t value) { return plainText(decimalDigits(value), digitsOfWholeNumber); }
Text plainNumber(float value) { return plainText(decimalDigits(value), digitsOfSingle); }
Text plainNumber(double value) { return plainText(decimalDigits(value), digitsOfDouble); }

Text Str(std::int64_t value) {
    Bytes digits;
    appendSigned(digits, value);
    return wide(digits);
}
Text Str(float value) { return signedText(decimalDigits(value), digitsOfSingle); }
Text Str(double value) { return signedText(decimalDigits(value), digitsOfDouble); }

Text trimmedStr(std::int64_t value) { return trimmed(Str(value)); }
Text trimmedStr(float value) { return trimmed(Str(value)); }
Text trimmedStr(double value) { return trimmed(Str(value)); }

Text printedNumber(std::int64_t value) { return Str(value) + u" "; }
Text printedNumber(float value) { return Str(value) + u" "; }
Text printedNumber(double value) { return Str(value) + u" "; }

void appendPrintedNumber(Bytes& line, std::int64_t value) {
    appendSigned(line, value);
    line += ' ';
}

Text fixedDigits(std::int64_t value, std::size_t count) {
    const Text digits = Text(count, u'0') + wide(decimalDigits(value).whole());
    return digits.substr(digits.size() - count);
}

Text percentText(std::int64_t percent) { return Str(percent) + u"%完了"; }

Text padRight(TextView text, std::size_t width) {
    return Text(text.size() < width ? width - text.size() : 0, u' ') + Text(text);
}

std::size_t blanksToPrintZone(std::size_t columns) { return printZone - columns % printZone; }

Bytes toPrintZone(Bytes line) {
    line.append(blanksToPrintZone(line.size()), ' ');
    return line;
}
