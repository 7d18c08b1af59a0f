#pragma once
// What a design may hold: the rules on leaving the item count and the file name box, and the validation of the whole
// grid before it is accepted. The boxes' rules tell the user and change nothing but the grid's size.

#include "structure/table_design.h"

/// The header of a grid column, 0 to 3.
TextView columnHeader(int column);
inline TextView columnHeader(DesignColumn column) { return columnHeader(static_cast<int>(column)); }

/// The message that a table can't have more items.
void tellTooManyItems(ZORMOD& zormod);

/// On leaving `text1`: the grid takes the number of rows typed. True if it did; otherwise the user has been told.
bool leaveItemCountBox(TableDesign& design);

/// On leaving `text3`: tells of an empty name and of an extension other than ".txt". True if the name may stand.
bool leaveFileNameBox(TableDesign& design);

/// The first fault of the design, item by item and in the order of the tests; empty if it may be accepted. The count is
/// what `text1` says, which differs from the grid only where that box has refused it.
Text designFault(const TableDesign& design);

/// The width of a row in bytes, as typed or read; 0 where it holds no number.
std::int16_t designWidth(const DesignRow& row);
