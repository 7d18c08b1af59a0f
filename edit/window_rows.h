#pragma once
// The number of rows in the record window follows the room that the standard view has on the screen.

#include "sheet/zormod.h"

/// Takes `rows` (4..100) over and refills the window round the current record. The current row keeps what has been
/// typed into it and isn't on the disk yet. Without a table only the number is taken.
void useWindowRows(ZORMOD& zormod, std::int16_t rows);
