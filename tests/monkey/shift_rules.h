#pragma once
// What a shift of the cells from the current one on must make of the row in the window. It writes nothing: the row
// comes to the disk when the user leaves it.

#include "tests/monkey/row_rules.h"

/// Where the cells go.
enum class Shift {
    right, ///< each into the next item; the current one becomes blank
    left,  ///< each into the item before it, over the current one; the last becomes blank
};

/// Whether nothing but the current row in the window has changed, and there each value stands where the shift puts it.
/// A row with half characters, or with a value that is too wide for its new cell, is only looked at ahead of the
/// current item.
Complaint cellsShifted(const CodePage& codePage, const Seen& before, const Seen& now, Shift shift);
