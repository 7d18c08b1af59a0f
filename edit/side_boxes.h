#pragma once
// The boxes beside the input box. They show the current cell after every status update, say their names when Tab comes
// to them, and take numbers to jump to.

#include "edit/edit_screen.h"
#include "platform/keys.h"
#include "platform/screen.h"

/// What a side box is called when it gets the focus, with the word for a text box: "行番号ﾃｷｽﾄﾎﾞｯｸｽ" and its like.
Text sideBoxLabel(PanelField field);

/// The focus of a side box: says its text and name.
void sideBoxGotFocus(EditScreen& edit, PanelField field);
/// The focus left a side box: typing in it is over.
void sideBoxLostFocus(EditScreen& edit, PanelField field);

/// The user changed the text of txtREC or txtItemnum.
void sideBoxTyped(EditScreen& edit, PanelField field, const Text& text);
/// A key went down in txtREC or txtItemnum: from now on changes are typing.
KeyOutcome sideBoxKeyDown(EditScreen& edit, PanelField field, const KeyStroke& stroke);
/// A character is about to go into a side box; Enter takes the value and jumps, beeps outside the limits.
KeyOutcome sideBoxKeyPress(EditScreen& edit, PanelField field, char16_t character);
/// A key was let go in a side box: its readings. `lastSelLength` is the form's memory for that box.
void sideBoxKeyUp(EditScreen& edit, PanelField field, const KeyStroke& stroke, const BoxView& box, int& lastSelLength);

/// The memo box lost the focus with this text: a memo that differs is kept and the item definition file written.
void memoLeft(EditScreen& edit, const Text& text);
