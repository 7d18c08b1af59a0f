#pragma once
// A changed design and the records that were written under the old one: whether they are cut differently now, and how a
// record is put into its new cells. Called when a design is accepted; nothing here asks the user.
//
// Old and new items belong together by their number alone. An item that was inserted or removed in the grid doesn't take
// its data along: the cells behind it shift.

#include "structure/table_design.h"

/// True if an item from 1 on of the old table has another alignment or width in the grid, or is no longer there. Item 0
/// is not looked at, and items that are new behind the old ones lie in what was blank.
bool cutsDiffer(const ItemTable& old, const std::vector<DesignRow>& rows);

/// The record in its new cells: each old cell trimmed, then cut or filled with blanks to its new width on the side that
/// its new alignment wants. An item that had no width gets blanks. The result has 254 data bytes, CR and LF, whatever
/// stood behind the old items. `old` has its `itemStart`; `made` are the new items.
Bytes rewrittenRecord(const CodePage& codePage, BytesView record, const ItemTable& old, const ItemTable& made);

/// The items of an accepted grid, `itemStart` computed. The items that take input are those of the same numbers in `old`.
ItemTable itemsOf(const std::vector<DesignRow>& rows, const ItemTable& old);
