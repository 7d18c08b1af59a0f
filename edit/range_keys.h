#pragma once
// The keys of the input box that begin a range and those that act on one that is fixed. The operations themselves are
// commands; here stands which key leads to which, what is refused before, and how a range is given up.

#include "edit/edit_screen.h"
#include "platform/keys.h"

/// The commands that begin a range. When they run, the current record lies in the file, the view is not the cards, and
/// the current row is safely on the disk, typed text in it.
inline constexpr TextView startBlockRangeCommand = u"startBlockRange";
inline constexpr TextView startRecordRangeCommand = u"startRecordRange";
inline constexpr TextView startItemRangeCommand = u"startItemRange";

/// The commands on a fixed range that no menu entry does the same way: Ins on records (the row is on the disk, typed
/// text in it), and the arrows that start to move or to copy it.
inline constexpr TextView insertRangeRecordsCommand = u"insertRangeRecords";
inline constexpr TextView moveRangeItemsLeftCommand = u"moveRangeItemsLeft";
inline constexpr TextView moveRangeItemsRightCommand = u"moveRangeItemsRight";
inline constexpr TextView moveRangeRecordsUpCommand = u"moveRangeRecordsUp";
inline constexpr TextView moveRangeRecordsDownCommand = u"moveRangeRecordsDown";
inline constexpr TextView moveRangeBlockCommand = u"moveRangeBlock";
inline constexpr TextView copyRangeBlockCommand = u"copyRangeBlock";
/// A key was let go in the input box while a range is drawn: the drawing step and its status reading.
inline constexpr TextView stepRangeCommand = u"stepRange";
/// The Shift key alone: the reading of the fixed range.
inline constexpr TextView readRangeCommand = u"Hread";

/// Does what the stroke does if it is one of those that begin a range; Shift+Left and Shift+Right are that in an empty
/// box only. Behind the end of the file it beeps, in the card view it says why not. False: no such stroke.
bool startsRange(EditScreen& edit, const KeyStroke& stroke);

/// A key down while a range is fixed: acts on it, keeps it (modifier keys) or gives it up (any other key, which then
/// has no further effect).
KeyOutcome fixedRangeKey(EditScreen& edit, const KeyStroke& stroke);

/// Gives a fixed range up: no ends, no mask, the current cell shown with an empty focused box.
void cancelRange(EditScreen& edit);
