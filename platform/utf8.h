#pragma once
// UTF-8 as other programs of the desktop exchange it: conversion to and from the program's texts, and to and from
// Latin-1 for the programs that know nothing else. Called by the clipboard and its keeper. Never used for the bytes
// of a table: those are Shift-JIS and belong to code_page.h.

#include "platform/text.h"

#include <string>
#include <string_view>

/// The text as UTF-8. A surrogate without its partner becomes U+FFFD; every other unit, private use included, is exact.
std::string toUtf8(TextView text);

/// The UTF-8 bytes as a text. Ill-formed stretches become one U+FFFD for each longest possible beginning of a
/// character, so no input fails.
Text fromUtf8(std::string_view utf8);

/// The UTF-8 bytes as Latin-1; a character above U+00FF becomes one "?".
std::string latin1FromUtf8(std::string_view utf8);

/// The Latin-1 bytes as UTF-8.
std::string utf8FromLatin1(std::string_view latin1);
