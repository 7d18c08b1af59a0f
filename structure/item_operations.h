#pragma once
// The operations that change which items the table has and in what order: every record is rewritten, and the K file with
// it; killed or failed at any moment the table is, at its next opening, the old pair of both or the new one. Called by the
// item commands and by the pointer of a move; what the user is asked before is not here. The caller has committed cell and
// row. Ranges may come with their ends in either order; an item that the table hasn't is a subscript failure.
// A failure is thrown as it rises; the items of the open table are read again by whoever catches it.

#include "sheet/bulk_rewrite.h"

/// Puts as many new items as from..to holds in front of the smaller end: one byte wide, left-aligned, with a made-up name.
/// BulkEnd::refused, told to the user: the widths would come to more than a record holds, or the items to more than a
/// table may have. Can't be stopped.
BulkEnd insertItems(ZORMOD& zormod, std::int16_t from, std::int16_t to);

/// Takes the items from..to out; what stood behind them moves to the left, the old line end of the record included, so the
/// record has two then. Without item 0 the next one is the ID item. All items are a subscript failure, because a table
/// without any can't be opened. Can't be stopped.
BulkEnd deleteItems(ZORMOD& zormod, std::int16_t from, std::int16_t to);

/// Puts the items from..to in front of the item `pointer`, which is outside of them, or it is a subscript failure. While
/// the records are copied the task word is "work". Says so in the end.
BulkEnd moveItems(ZORMOD& zormod, std::int16_t from, std::int16_t to, std::int16_t pointer);
