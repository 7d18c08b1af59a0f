#pragma once
// Cells: how a value is cut out of a record and put into one. Cuts are byte cuts and don't look at characters: half a
// double-byte character at an edge meets whatever byte follows it, and the neighbour may change by that.

#include "sheet/zormod.h"

/// Text of an item in a record given as bytes, decoded, blanks kept. An item outside the table or of negative width is
/// a subscript failure.
Text cellOf(const ZORMOD& zormod, BytesView rec, std::int64_t item);
/// The item's bytes as they stand in a record; fewer than its width where the record ends. Failures as above.
BytesView cellBytes(const ZORMOD& zormod, BytesView rec, std::int64_t item);
/// The bytes of a record from the first byte of one item to the last byte of another, whichever is given first, and
/// `more` bytes behind it where there are any. Items that don't lie in a record are a subscript failure.
BytesView itemSpan(const ItemTable& items, BytesView rec, std::int16_t one, std::int16_t other, int more = 0);
/// The same behind what `text` holds, for loops over many cells.
void appendCell(const ZORMOD& zormod, BytesView rec, std::int64_t item, Text& text);
/// Text of an item of the current record, from the window.
Text getCell(const ZORMOD& zormod, std::int64_t item);
/// The same from slot 1.
Text getScratchCell(const ZORMOD& zormod, std::int64_t item);
/// Reads record `recordNo` of file 1 into slot 0 and gives the text of the item.
Text getRecordCell(ZORMOD& zormod, std::int32_t recordNo, std::int64_t item);

/// Puts `value` into an item of the record in slot 1 or 0 by the item's alignment: "R" fills up with blanks in front
/// and drops first bytes of a value that is too long, anything else fills up behind and drops the last.
void setScratchCell(ZORMOD& zormod, const Text& value, std::int64_t item);
void setScratch0Cell(ZORMOD& zormod, const Text& value, std::int64_t item);
/// The same for any slot; the writer of cells of the current row.
void setSlotCell(ZORMOD& zormod, std::int64_t slot, const Text& value, std::int64_t item);
/// Puts the item of the record in slot 1 into its cell anew, without the blanks round it, by the alignment that the item
/// has now: what setScratchCell makes of the trimmed text, but from bytes to bytes, for loops over all records.
void realignScratchCell(ZORMOD& zormod, std::int64_t item);
/// Puts `boxText` into the current cell of the window and redraws its row. The file is not touched.
void commitCell(ZORMOD& zormod, const Text& boxText);

/// Appends `value` at exactly `width` bytes: filled up with blanks, in front if `toRight`, else behind; of one that is too
/// long the last or the first bytes are kept.
void appendAligned(Bytes& row, BytesView value, std::size_t width, bool toRight);

/// The cell text as views show it: a cell of "/" characters only shows as blanks.
Text shownCell(const ZORMOD& zormod, BytesView rec, std::int64_t item);
