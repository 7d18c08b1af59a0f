#pragma once
// The memo of the table, from the box in which it is typed to the item definition file. Called when that box loses the focus
// and by whatever leads away from the table, because a form that opens over the box takes no focus from it.

#include "edit/edit_screen.h"

/// The memo box has lost the focus, or the user is about to leave the table: a typed memo that differs is kept and the item
/// definition file written. If that fails, the user is told and the typed memo stays in the box.
void keepTypedMemo(EditScreen& edit);
