#pragma once
// The change of an item's alignment in the box txtLR. Form1's boxes and menu start it through commands.

#include "edit/edit_screen.h"

/// `mnuRL`: the focus goes to txtLR, which says itself. Beeps without a table.
void mnuRL(EditScreen& edit);

/// Enter in txtLR: takes what the box holds, in either case and either width. Anything but "R" and "L" beeps, and the
/// box shows the old value again. A new value realigns the item in every record, and the K file changes with the records:
/// both or neither. A failure is thrown as it rises.
void changeAlignment(EditScreen& edit);
