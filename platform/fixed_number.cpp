#include "platform/fixed_number.h"

#include "platform/failure.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t workLength = 255;
constexpr double largestExponent = 1000;

/// The signed plain digits with a point, filled with zeros behind.
Text workText(TextView signedNumber) {
    Text text = trimmed(expandExponent(signedNumber));
    if (!contains(text, u".")) {
        text += u'.';
    }
    text.resize(std::max(text.size(), workLength), u'0');
    return text;
}

/// One unit of the last kept place.
double unitOf(std::size_t decimals) {
    return decimals == 0 ? 1 : Val(u"0." + Text(decimals - 1, u'0') + u"1");
}

Text wholePart(TextView whole, std::size_t width) {
    if (whole.size() <= width) {
        return padRight(whole, width);
    }
    if (width > 0) {
        return u"%" + Text(whole.substr(whole.size() - width));
    }
    return whole.find_first_of(u"123456789") == TextView::npos ? u"" : u"%";
}

template <typename Number> Text fixed(Number value, int intWidth, int decimalCount) {
    const auto width = static_cast<std::size_t>(std::max(intWidth, 0));
    const auto decimals = static_cast<std::size_t>(std::max(decimalCount, 0));
    if (width == 0 && decimals == 0) {
        return u".";
    }
    Text text = workText(Str(value));
    const auto firstDropped = text.find(u'.') + decimals + 1;
    if (firstDropped < text.size() && text[firstDropped] > u'4') {
        text = workText(Str(value + std::copysign(unitOf(decimals), static_cast<double>(value))));
    }
    const auto point = text.find(u'.');
    return wholePart(TextView(text).substr(0, point), width) + u"." + text.substr(point + 1, decimals);
}

} // namespace

Text fixNumber(double value, int intWidth, int decimals) { return fixed(value, intWidth, decimals); }

Text fixNumber(float value, int intWidth, int decimals) { return fixed(value, intWidth, decimals); }

Text expandExponent(TextView text) {
    if (text.find_first_of(u"eEdD") == TextView::npos) {
        return Text(text);
    }
    const Text number = trimmed(text);
    const std::size_t signLength = number.starts_with(u'-') || number.starts_with(u'+') ? 1 : 0;
    const auto mark = number.find_first_of(u"eEdD");
    const double exponent = Val(TextView(number).substr(mark + 1));
    if (std::abs(exponent) > largestExponent) {
        throw RuntimeFailure{FailureKind::overflow};
    }
    Text digits = number.substr(signLength, mark - signLength);
    const auto oldPoint = std::min(digits.find(u'.'), digits.size());
    digits.erase(oldPoint, 1);
    const int point = static_cast<int>(oldPoint) + static_cast<int>(exponent);
    const int length = static_cast<int>(digits.size());
    if (point <= 0) {
        digits.insert(0, u"." + Text(static_cast<std::size_t>(-point), u'0'));
    } else if (point < length) {
        digits.insert(static_cast<std::size_t>(point), u".");
    } else {
        digits.resize(static_cast<std::size_t>(point), u'0');
    }
    return number.substr(0, signLength) + digits;
}
