#pragma once
// The four single steps of the current cell. At the end of a record a step goes on in the next one, and the file grows
// simply by stepping past its end and typing.

#include "edit/edit_screen.h"

/// To the next item that takes input; behind the last one to the next record.
void nextItem(EditScreen& edit);
/// To the item before, whatever takes input; before item 0 to the last item of the record before.
void prevItem(EditScreen& edit);
/// To the next record, at most one behind the last; leaves the current row safely on the disk.
void nextRecord(EditScreen& edit);
/// To the record before; leaves the current row safely on the disk.
void prevRecord(EditScreen& edit);

/// Writes the ID counter into item 0 of the current record's row: the trimmed number, left only if the item's
/// alignment is exactly "L", right otherwise.
void applyIdAuto(EditScreen& edit);
