#pragma once
// The two kinds of text in the program, and the few operations on them that every room needs.
// A Text is what people read and hear; Bytes are what stands in files. Nothing here converts one into the other:
// that is code_page.h alone.

#include <cstddef>
#include <string>
#include <string_view>

/// Decoded text. A "character" is one UTF-16 unit.
using Text = std::u16string;
using TextView = std::u16string_view;

/// Shift-JIS (code page 932) bytes, one element a byte. Widths, positions and limits count these.
using Bytes = std::string;
using BytesView = std::string_view;

/// The text without the half-width blanks at both ends. Full-width blanks stay: they are data.
Text trimmed(TextView text);

/// The text with every line end (CR LF, a lone CR, a lone LF) as a single CR: the form in which boxes of several lines
/// are handed about.
Text withLinesEndedByCr(TextView text);

/// 1-based position of the last occurrence of `needle` in `text`, 0 if there is none or `needle` is empty.
std::size_t lastPosition(TextView text, TextView needle);

/// True if `needle` stands anywhere in `text`. The empty needle is contained in nothing.
bool contains(TextView text, TextView needle);
