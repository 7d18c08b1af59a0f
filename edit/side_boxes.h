#pragma once
// The boxes beside the input box. They show the current cell after every status update, say their names when Tab comes
// to them, and take numbers to jump to. Form1 hands them the toolkit's events of txtREC, txtItemnum, txtWIDTH, txtLR,
// Text1, RichTextBox1 and RichTextBox2.

#include "edit/edit_screen.h"
#include "platform/keys.h"
#include "platform/screen.h"

/// Enter in txtLR: starts the change of the item's alignment to what the box holds.
inline constexpr TextView changeAlignmentCommand = u"changeAlignment";

/// The focus of a side box: says its text and name.
void sideBoxGotFocus(EditScreen& edit, PanelField field);
/// The focus left a side box: typing in it is over.
void sideBoxLostFocus(EditScreen& edit, PanelField field);

/// The user changed the text of a side box. A number that is no item beeps in txtItemnum at once, and the box gets the
/// current item back. txtWIDTH and txtLR hold what is typed until the next status update.
void sideBoxTyped(EditScreen& edit, PanelField field, const Text& text);
/// A key went down in txtREC or txtItemnum: from now on changes are typing.
KeyOutcome sideBoxKeyDown(EditScreen& edit, PanelField field, const KeyStroke& stroke);
/// A character is about to go into a side box; Enter takes the value and jumps, beeps outside the limits.
KeyOutcome sideBoxKeyPress(EditScreen& edit, PanelField field, char16_t character);
/// A key was let go in a side box: its readings. `lastSelLength` is the form's memory for that box.
void sideBoxKeyUp(EditScreen& edit, PanelField field, const KeyStroke& stroke, const BoxView& box, int& lastSelLength);
