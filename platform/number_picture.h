#pragma once
// Numbers written through a format picture: the cells of the reports and what a user types in the format rewrite.
// Texts have pictures of their own, see text_picture.h.
//
// The language: "0" a digit that is always there, "#" a digit or nothing, the first "." the point, "," between places of
// the integer part a comma every three digits, "," directly behind its last place a division by 1000, "%" a
// multiplication by 100 and the sign itself. All other characters stand for themselves, where they stand.

#include "platform/number_text.h"
#include "platform/text.h"

/// The number in the picture.
/// - The decimal digits of the number (15 of a double, 7 of a single) are rounded to the places behind the point, a half
///   away from zero: 1.005 in ".00" is "1.01".
/// - Digits that have no place before the point stand at the first place, or at the point if there is none. A "#"
///   without a digit leaves nothing, also for 0: 0 in " ###.0" is " .0". Places behind the first "0", and decimals up to
///   the last one, are always filled.
/// - A minus comes before the whole picture; a number that rounds to 0 has none.
/// - A picture without a place and without a point shows its characters only; the empty picture gives plainNumber.
/// Throws as number_text.h says, and for nothing else: every picture is a valid one.
Text Format(double value, TextView picture);
Text Format(float value, TextView picture);
Text Format(std::int64_t value, TextView picture);
template <WholeNumber T> Text Format(T value, TextView picture) {
    return Format(static_cast<std::int64_t>(value), picture);
}
