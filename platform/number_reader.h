#pragma once
// From texts to numbers, and from doubles to the two integer types. Everything that reads a number out of a cell, a file
// or a prompt calls Val; what a user typed goes through typedNumber of transform/width_conversion first.

#include "platform/text.h"

#include <cstdint>

/// The number at the start of a text: half-width blanks are skipped, then a sign, digits with at most one point, and an
/// exponent with E or D in either case and a sign of its own. It ends at the first character that doesn't fit, also at a
/// blank inside; 0 if no digit came, so full-width digits are worth 0. An exponent letter without digits is not taken.
/// A number too large for a double throws RuntimeFailure `overflow`; one too small is 0.
double Val(TextView text);

/// Rounds a half to the even neighbour. Outside of 16 or 32 bits, and for what is no number, RuntimeFailure `overflow`.
std::int16_t roundTo16(double value);
std::int32_t roundTo32(double value);
/// Rounds to single precision. Outside of its range, and for what is no number, RuntimeFailure `overflow`.
float roundToSingle(double value);
