#pragma once
// Texts written through a format picture: report cells that hold a text, and the format rewrite of cells that are no
// numbers. Numbers have pictures of their own, see number_picture.h.
//
// The language: "@" a character or a blank, "&" a character or nothing, "<" and ">" the whole text in small or capital
// letters (the last one counts), and "&", blanks, "&" a field as wide as these characters. All others are literal.

#include "platform/text.h"

/// The text in the picture.
/// - With a field the text stands in the first field, left-aligned; a longer text stays whole. Whatever other places the
///   picture has are empty.
/// - Otherwise the places are filled from the right; characters too many stand before the one at the first place:
///   "12345678" in "@@@-@@@@" is "1234-5678".
/// - A picture without a place shows its literals; "<" or ">" in it stands for the whole text.
/// - The empty picture gives the text itself.
Text Format(TextView text, TextView picture);
