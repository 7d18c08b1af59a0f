#pragma once
// Reading a box of several lines line by line: what its keys say as the caret moves through it. Every form that shows
// running text speaks by these rules; most keys look only at the line that holds the caret, however long the text is.

#include "platform/keys.h"
#include "sheet/zormod.h"

#include <functional>

/// Where the caret stands in a box of several lines.
struct LinePlace {
    BoxView line{};     ///< the caret's line alone, without its line end; the caret counts from the line's start
    int number = 0;     ///< lines before it
    int count = 1;      ///< lines in the box
    int caret = 0;      ///< characters of the whole text before the caret
    int characters = 0; ///< characters of the whole text
};

/// The reading of a line: "先頭ぎょう" or "最終ぎょう" at the ends of a text of several lines, then the line or "空行".
Text lineReading(const LinePlace& place);

/// How far into the text the caret stands: "50パーセント位置".
Text percentReading(const LinePlace& place);

/// The key ups of a box of several lines. Up, Down, Home, End, PgUp and PgDn, with Ctrl too, say the line; Left and
/// Right the character; all of these with Shift, and Ctrl+A, the selection; Ctrl+PgDn the position in percent; F12 the
/// caret. Shift+PgDn is left to the form: everywhere it asks what control this is. `wholeBox` gives the whole box, lines
/// ending in CR, and is asked only by the keys that need it. Call it for every key up of the box: a key that leaves
/// nothing selected sets `lastSelLength` to 0.
void readLineKeys(ZORMOD& zormod, const KeyStroke& stroke, const LinePlace& place, int selectionLength,
                  const std::function<BoxView()>& wholeBox, int& lastSelLength);
