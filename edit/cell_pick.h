#pragma once
// What the mouse does to the current cell: the views call it when a cell is clicked. What is typed is never lost by it.

#include "edit/edit_screen.h"

/// Makes `item` of `record` the current cell; what is typed goes into the old one first. With a range in force the
/// click only gives the range up; while a range is drawn or a target is chosen it does nothing. A record behind the end
/// of the file beeps, unless it is the current one.
void pickCell(EditScreen& edit, std::int32_t record, std::int16_t item);
