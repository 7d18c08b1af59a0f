#pragma once
// The decimal digits of a number, which all number texts are made of. Called by the writers of platform/number_text and
// its neighbours only; nothing here makes a text. The digits are those of the exact binary value, so that a tie at the
// last digit is seen as one: 4.8828125 as a single ends in 3 at its 7th digit.

#include <cstdint>
#include <string>

/// Significant digits that the text of a single and of a double has at most.
inline constexpr int digitsOfSingle = 7;
inline constexpr int digitsOfDouble = 15;

/// A number as 0.digits * 10^point.
struct DecimalDigits {
    /// Never true for 0.
    bool isNegative = false;
    /// '0' to '9' without a zero at either end; empty for 0.
    std::string digits{};
    /// Number of digits before the decimal point; below 0 the number of zeros that follow the point. 0 for 0.
    int point = 0;

    /// The digits before the point, "" if there is none. May be longer than `digits`.
    std::string whole() const;
    /// The digits behind the point, with the zeros that come first.
    std::string fraction() const;
};

/// At most 7 digits of a single, at most 15 of a double, a half away from zero. Infinity throws RuntimeFailure
/// `overflow`, what is no number `impossible`.
DecimalDigits decimalDigits(float value);
DecimalDigits decimalDigits(double value);
/// All digits of a whole number.
DecimalDigits decimalDigits(std::int64_t value);

/// Keeps the first `count` digits, a half away from zero. 0 keeps none but may round up to one unit; below 0 gives 0.
DecimalDigits rounded(DecimalDigits number, int count);
