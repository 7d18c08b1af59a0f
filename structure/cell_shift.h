#pragma once
// The two keys that make room for a cell in the current record and that close a gap. They work on the row in the window;
// the file gets it when the record is left.

#include "sheet/zormod.h"

/// Moves the cells from the current item on one item to the right; the last cell is lost, the current one becomes blank.
/// Values are trimmed and go in by the alignment of the item they come to.
void shiftCellsRight(ZORMOD& zormod);

/// Moves the cells behind the current item one item to the left; the last cell becomes blank.
void shiftCellsLeft(ZORMOD& zormod);
