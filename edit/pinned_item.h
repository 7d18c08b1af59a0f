#pragma once
// The pinned item: one item of the current record stands in a small form of its own, frmSPITEM, whatever item the user
// is in. The menu entry, a double click on Label3 and the form's close box pin and unpin it; the status update keeps
// the form up to date. The form never takes the keyboard.

#include "edit/edit_screen.h"

/// The menu entry: unpins; or asks for the item and pins it, item 0 too.
void mnuSPITEM(EditScreen& edit);

/// A double click on Label3: pins the current item without asking. Item 0 beeps. To this road the number 0 means "not
/// pinned", and it leaves 0 behind where it unpins; so the first double click of a run, where the number is -1, pins
/// nothing yet.
void togglePinnedByClick(EditScreen& edit);

/// frmSPITEM has been closed, by its close box or by a routine that has already unpinned the item.
void pinnedFormClosed(EditScreen& edit);
