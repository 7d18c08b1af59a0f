#pragma once
// From numbers to texts: the only place of the program, with its neighbours number_picture (format pictures) and
// fixed_number (columns of reports), where a number becomes a text. It never asks the system's locale.
//
// A single shows at most 7 significant digits, a double at most 15, a half at the last digit going away from zero on the
// exact value. From 10 to the 7th (single) or 15th (double) on and below 1E-15 the text turns to the form 1.5E+07. So it
// matters which of the two types a value has: keep a single a float until it is text. Infinity throws RuntimeFailure
// `overflow`, what is no number `impossible`.

#include "platform/number_reader.h"
#include "platform/text.h"

#include <concepts>
#include <cstddef>
#include <cstdint>

/// The types that count: every integer type, but neither truth values nor characters.
template <typename T>
concept WholeNumber = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> &&
                      !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> && !std::same_as<T, char16_t> &&
                      !std::same_as<T, char32_t>;

/// "12", "-3", "0.2": no blanks, a zero before the point. For sentences, messages and defaults.
Text plainNumber(std::int64_t value);
Text plainNumber(float value);
Text plainNumber(double value);

/// " 12", "-3", " .2": a blank or the minus first, no zero before the point.
Text Str(std::int64_t value);
Text Str(float value);
Text Str(double value);

/// Str without its blank: "12", "-3", ".2".
Text trimmedStr(std::int64_t value);
Text trimmedStr(float value);
Text trimmedStr(double value);

/// Str and one blank behind: a number written directly into a line of a file or a printed page.
Text printedNumber(std::int64_t value);
Text printedNumber(float value);
Text printedNumber(double value);

/// printedNumber in ASCII behind what `line` holds, for files with as many numbers as a table has records.
void appendPrintedNumber(Bytes& line, std::int64_t value);

// The same for the other integer types, so that no call is ambiguous.
template <WholeNumber T> Text plainNumber(T value) { return plainNumber(static_cast<std::int64_t>(value)); }
template <WholeNumber T> Text Str(T value) { return Str(static_cast<std::int64_t>(value)); }
template <WholeNumber T> Text trimmedStr(T value) { return trimmedStr(static_cast<std::int64_t>(value)); }
template <WholeNumber T> Text printedNumber(T value) { return printedNumber(static_cast<std::int64_t>(value)); }

/// The last `count` digits of a number of 0 or more, with zeros in front where it has fewer: (1012, 4) gives "1012",
/// (5, 2) gives "05". For line labels, clock times and dates. A negative number counts without its sign.
Text fixedDigits(std::int64_t value, std::size_t count);

/// The progress label: the percentage with its leading blank and the word for "completed".
Text percentText(std::int64_t percent);

/// Blanks in front until the text has `width` characters; a longer text stays whole. The blanks do go to the left: the
/// text ends up at the right edge of its column.
Text padRight(TextView text, std::size_t width);

/// Number of blanks, 1 to 14, that lead from the end of a line of `columns` bytes to the next print zone. A line that
/// ends exactly on a zone moves a whole zone on.
std::size_t blanksToPrintZone(std::size_t columns);

/// The line with those blanks behind it.
Bytes toPrintZone(Bytes line);
