#pragma once
// Readings of the caret and the selection in a text box, the same in every form.

#include "platform/keys.h"
#include "sheet/zormod.h"

/// The F12 reading: line, column and the characters round the caret. A box may hold several lines; lines end in CR.
Text caretPositionReading(const BoxView& box);

/// Says caretPositionReading through the throttle.
void readCaretPosition(ZORMOD& zormod, const BoxView& box);

/// Says the name of the character after the caret, at the end of the text the empty reading, through the throttle. An
/// empty box says nothing.
void readCaretChar(ZORMOD& zormod, const BoxView& box);

/// The line of a box that holds the caret, without its line end.
Text getCLineString(const BoxView& box);

/// The reading of the box's selection after Shift+Left or Shift+Right; `lastSelLength` is the form's memory of its
/// length and is brought up to date. Behind the throttle test; an empty selection says nothing.
void readSelection(ZORMOD& zormod, const BoxView& box, Key key, int& lastSelLength);

/// The key ups of a single-line text box on any form: selection, the box's text under `label`, caret position, caret
/// character, and the Shift key alone. `label` holds textBoxWord where the box's text is to be said. Call it for every
/// key up of the box: a key that leaves nothing selected sets `lastSelLength` to 0.
void readBoxKeys(ZORMOD& zormod, const KeyStroke& stroke, const BoxView& box, TextView label, int& lastSelLength);
