#pragma once
// The clip file: cells that were copied, kept in a file instead of in memory. Made by the user's copy and before every
// deletion or clearing of a range, so that what was removed can be pasted back; it outlives the program's run.
//
// Format of "ZORCLip" in the current folder, Shift-JIS, every line ended by CR LF; numbers stand between two blanks:
//
//      2         how many records, n
//      7         the numbers of the n records
//      8
//      3         how many items, m
//      1         the numbers of the m items
//      ...
//     "山田  "   n times m cells, record by record, with their blanks
//
// A double quote inside a cell is written as it is, so the cell ends there for whoever reads it. A copy that is stopped
// leaves the file cut short; one that fails leaves the old file.

#include "sheet/zormod.h"

/// Without a path: it lies in the current folder.
inline constexpr TextView clipFileName = u"ZORCLip";

/// Writes the selected range as the clip file and, without anything between the cells, to the clipboard; then the
/// selection is given up. False, with the selection as it was: there is none, or another copy of the program is at work
/// here, of which the user has been told, or the user has stopped it. The caller has committed the row. Fails with a
/// RuntimeFailure of kind file.
bool makeClip(ZORMOD& zormod);
