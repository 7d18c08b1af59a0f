#pragma once
// Space or End in an empty input box holds the input limit back for a while and puts it in force again. The Space
// itself goes on into the box, so the key up takes the blank of the restoring press out again.

#include "edit/edit_screen.h"
#include "platform/keys.h"

/// Suspends the limit in force, or restores the one that is held back, and says so; with neither it does nothing.
void toggleInputLimit(EditScreen& edit);

/// The key up of Space or End: with a limit in force a box that holds just one blank is cleared. True if it was, and
/// the key up is used up.
bool clearsRestoringBlank(EditScreen& edit, const KeyStroke& stroke);
