#pragma once
// Pasting of the clip file at the current cell, and taking the last paste back. What a paste replaces is kept in a second
// file, so that it can be put back later, also after the program's next start.
//
// Format of "ZORCLip.bak" in the current folder, Shift-JIS, every line ended by CR LF: the record number at which the
// paste began, between two blanks; then for each record, in double quotes, its bytes up to the end of the last item as
// they were. A double quote among them is written as it is and cuts the row when it is put back. A row that the paste has
// made itself stands there blank, so taking the paste back leaves it in the table.
//
// The callers have committed the row. A clip file or a backup that is cut short, or is none, ends in a RuntimeFailure with
// the table as it was.

#include "sheet/zormod.h"

/// Writes the clip's cells over the table from the current cell on. Cells to the right of the last item are dropped,
/// records behind the end make the table grow. A stop puts the rows back as undoPaste does.
void pasteOver(ZORMOD& zormod);

/// Puts as many new records in front of the current one as the clip has, and its cells into them from the current item
/// on. In a record in which no item is left the cells that are left over become the first ones of the next record. False if
/// nothing was inserted; otherwise the number of new records has been said.
bool pasteInsert(ZORMOD& zormod);

/// Puts the rows of the backup back, after a question unless a paste has just been stopped. It can't be stopped itself.
void undoPaste(ZORMOD& zormod);
