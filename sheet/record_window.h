#pragma once
// The record window: the few records round the current one that stand in memory. The screen is drawn from it and
// typing changes it; a row goes back to the file when the user leaves the record.

#include "sheet/item_file.h"
#include "sheet/zormod.h"

/// Slot of the current record: curRecord - windowFirst + 2.
std::int64_t currentSlot(const ZORMOD& zormod);
/// Slot of window row j, from 1.
constexpr std::int64_t rowSlot(std::int64_t row) { return row + 1; }
/// Stores `rec` in a slot: cut to recordLength bytes or filled up with blanks.
void storeSlot(ZORMOD& zormod, std::int64_t slot, BytesView rec);

/// Rereads the window so that `recordNo` stands in its middle. Rows past the end of the file are blank.
void refillWindow(ZORMOD& zormod, std::int32_t recordNo);
/// Moves the window one record towards the start, unless it or the current record is at the start.
void scrollWindowUp(ZORMOD& zormod);
/// Writes the current row to file 1, unless it holds nothing (blanks or slashes) behind the end, or stands there already.
/// A failed write is thrown with `rowWrite` set; without it, and with nothing written, if somebody else has cut the table
/// so far that a gap of NULs would come ahead of the row.
void commitRecord(ZORMOD& zormod);

/// Opens the data file named by `fileName` and `fileDrive` as file 1, makes it if it doesn't exist, and claims it.
/// A RuntimeFailure of kind file, without a table, if that fails or another program has claimed it meanwhile.
void openDataFile(ZORMOD& zormod);
/// Fills the window from the start of file 1, whose K file has been read: item starts, first record, window rows. Rows
/// past the end show slashes, row 1 of an empty file is blank.
void fillFirstWindow(ZORMOD& zormod);

/// After a bulk operation: refills the window, empties `taskWord`, gives the selection up unless `mode` is 1, and shows
/// the current cell and the title.
void refreshAfterBulk(ZORMOD& zormod, int mode);

/// "ロミカ (", path, "/記録数:", count, ")".
void updateTitle(ZORMOD& zormod);
/// The window's title before any table is open.
inline constexpr TextView titleWithoutTable = u"音声案内付きﾃｷｽﾄﾃﾞｰﾀ管理・編集・集計ｿﾌﾄ";
