#pragma once
// Jumps by number, to the edges, and by a screenful. Text in the input box is never dropped by a jump: it is committed
// first, and a jump to another record leaves the row safely on the disk. Without a table every jump beeps and stays.

#include "edit/edit_screen.h"

#include <optional>

/// Run at the end of every jump while the target of a move or a copy is being chosen: the pointer follows the current
/// cell, and the keys stay with the pointer's form.
inline constexpr TextView pointerJumpedCommand = u"pointerJumped";

/// The last record of the table, 1 of an empty one.
std::int32_t lastRecord(ZORMOD& zormod);
/// Item 1; item 0 in a table without items.
std::int16_t firstItem(const ZORMOD& zormod);

/// The question of `mnuJUMP`, for whoever goes there by other rules: the record asked for, a sign in front of the answer
/// being relative to the current one; 0 stands for anything below 1. Nothing if the user gave up.
std::optional<std::int32_t> askForRecord(ZORMOD& zormod);
/// The question of `mnuHJ`: the item asked for, 0..itemCount.
std::optional<std::int16_t> askForItem(ZORMOD& zormod);

/// `mnuJUMP`: asks for a record number; a sign in front makes it relative. 0 or less beeps, past the end is the last.
void mnuJUMP(EditScreen& edit);
/// `mnuHJ`: asks for an item number; a sign in front makes it relative. Never beeps: it stops at the ends.
void mnuHJ(EditScreen& edit);

/// Last record, record 1, last item, item 1; record 1 and item 1. Item 1 is item 0 in a table without items. Only the
/// item jumps leave the ID numbering on; of them `mnuEXTR` writes a typed row to the disk and `mnuEXTL` doesn't.
void mnuEXTD(EditScreen& edit);
void mnuEXTTOP(EditScreen& edit);
void mnuEXTR(EditScreen& edit);
void mnuEXTL(EditScreen& edit);
void mnuHOME(EditScreen& edit);
/// `mnuCTRLP`: first item of the next record.
void mnuCTRLP(EditScreen& edit);

/// PgUp and PgDn: by the rows of the window, a beep at the edges.
void pageUp(EditScreen& edit);
void pageDown(EditScreen& edit);

/// Ctrl+T and Ctrl+Shift+T: an item further or back without committing anything; what is typed is dropped.
void stepItemForward(EditScreen& edit);
void stepItemBack(EditScreen& edit);

/// Goes to `record`, which must lie in the file, and refills the window; for the box of the record number.
void goToRecord(EditScreen& edit, std::int32_t record);
/// Goes to `item`, 0..itemCount, of the current record.
void goToItem(EditScreen& edit, std::int16_t item);
