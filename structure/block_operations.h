#pragma once
// The operations on a block of cells: copying and moving it to another place, and clearing it. The records are changed
// where they stand; stopped, or killed at any moment, the table has the old bytes or the new ones. Called by the pointer of
// a copy or a move and by the block commands; what the user is asked before is not here. The caller has committed cell and
// row. Afterwards the selection is given up.

#include "sheet/zormod.h"

/// Copies the selected block to where the current cell is its first one. Cells that would come to stand behind the last item
/// or record are left out. A value is trimmed, and goes in by the alignment and the width of its new item. Records are
/// worked on in the order in which source and target may overlap; within one record items are, when the block goes to the
/// right, worked on from the first to the last, so the first cells are repeated where the two overlap. Onto itself:
/// nothing.
void copyBlock(ZORMOD& zormod);

/// The same, and each cell that is copied becomes blank. Onto itself: a beep, and nothing.
void moveBlock(ZORMOD& zormod);

/// Makes the clip file of the records and items, ends in either order, then blanks their cells. Nothing without the clip
/// file. Can be stopped: nothing is blanked then.
void clearRange(ZORMOD& zormod, std::int32_t recordFrom, std::int32_t recordTo, std::int16_t itemFrom,
                std::int16_t itemTo);
