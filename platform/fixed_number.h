#pragma once
// Numbers in columns of a fixed width, as the reports of the statistics print them. The steps work on the text of the
// number, digit by digit, and their odd results are part of the reports' format: see fixNumber.

#include "platform/number_text.h"
#include "platform/text.h"

/// `intWidth` characters, a point and `decimals` digits, a half away from zero.
/// - Blanks go before a short integer part; a long one is cut to its rightmost `intWidth` characters behind a "%".
/// - Only the number 0 itself has a zero before the point: with (3, 3) it is "  0.000", but 0.00001 is "   .000". With
///   `intWidth` 0 an integer part of 0 vanishes, any other becomes "%".
/// - A negative number keeps its minus even if all its shown digits are zero.
/// - The point always stands there: 5 with (3, 0) is "  5.". A count below 0 counts as 0; both 0 give ".".
/// - The digits come from a text of 255 characters; what would stand behind them is left out.
Text fixNumber(double value, int intWidth, int decimals);
/// The same from the shorter text of a single.
Text fixNumber(float value, int intWidth, int decimals);
template <WholeNumber T> Text fixNumber(T value, int intWidth, int decimals) {
    return fixNumber(static_cast<double>(value), intWidth, decimals);
}

/// The text of a number with its exponent (E or D in either case) worked out into digits: "1.5E-05" becomes ".000015".
/// A text without an exponent letter comes back as it is, blanks included; otherwise trimmed. An exponent beyond
/// 1000 either way throws RuntimeFailure `overflow`.
Text expandExponent(TextView text);
