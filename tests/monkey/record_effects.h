#pragma once
// What an operation on records or on a range of cells may change in the open table. Called by operation_rules.

#include "tests/monkey/clip_rules.h"
#include "tests/monkey/row_rules.h"

#include <string_view>
#include <vector>

/// The data bytes of each record, in the order of the table.
using Records = std::vector<std::string_view>;

/// The complaint `what`, with the number of the record, of which `record` is the 0-based place.
Complaint complaintAt(const char* what, std::size_t record);

/// Whether the records of `shorter` are those of `longer` without one stretch; with `mustBeBlank` a stretch of blank
/// ones.
Complaint stretchChanged(const Records& longer, const Records& shorter, bool mustBeBlank);

/// Whether the same records stand there in some order.
Complaint recordsMoved(const Records& old, const Records& now);

/// Whether only the selected cells have become blank.
Complaint rangeCleared(const CodePage& codePage, const Seen& before, const Records& old, const Records& now);

/// Whether only cells have changed that a clip of this shape covers from the current one on. It may lengthen the table
/// by what it has for records behind the last.
Complaint pastedOver(const CodePage& codePage, const Seen& before, const ClipShape& clip, const Records& old,
                     const Records& now);

/// Whether the records that the backup names are as it has them, and all others as they were.
Complaint pasteTakenBack(const CodePage& codePage, const PasteBackup& backup, const Records& old, const Records& now);

/// Whether only the cells differ that the selected block was put over, and those that it was taken from in a move.
Complaint blockPut(const CodePage& codePage, const Seen& before, const Records& old, const Records& now);

/// Bytes 255 and 256 of a record from which the selected items were deleted: its line end stays behind the bytes that
/// are left, and one more is written where there is room.
Bytes endAfterDeletion(const Seen& before);
/// The same after a change of widths, which writes the line end right behind the last item.
Bytes endAfterWidths(const Seen& now);

/// Whether bytes 255 and 256 of each record that isn't the one that stood at its place before are `end`. One that is
/// as it was may lack its line end: nobody has written it.
Complaint recordsEndIn(BytesView end, const Seen& before, const Seen& now);
