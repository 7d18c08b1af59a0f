#pragma once
// Printing running text: lines of a fixed-pitch font, wrapped at the width of the page, on as many pages as it takes.
// The viewers print through it.

#include "sheet/zormod.h"

#include <vector>

/// The lines of `text`, which end in CR, each cut into pieces of at most `columns` half-width characters (at least 2). A
/// full-width character is never cut. An empty line is an empty piece; a CR at the very end ends the last line.
std::vector<Text> wrappedLines(const CodePage& codePage, TextView text, std::size_t columns);

/// Prints `text`, whose lines end in CR, as a document of the name `title`. False if the user gave up.
bool printText(ZORMOD& zormod, TextView text, const Text& title);
