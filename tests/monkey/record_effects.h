#pragma once
// What an operation on records or on a range of cells may change in the open table. Called by operation_rules.

#include "tests/monkey/row_rules.h"

#include <string_view>
#include <vector>

/// The data bytes of each record, in the order of the table.
using Records = std::vector<std::string_view>;

/// The complaint `what`, with the number of the record, of which `record` is the 0-based place.
Complaint complaintAt(const char* what, std::size_t record);

/// Whether the records of `shorter` are those of `longer` without one stretch; with `mustBeBlank` a stretch of blank ones.
Complaint stretchChanged(const Records& longer, const Records& shorter, bool mustBeBlank);

/// Whether the same records stand there in some order.
Complaint recordsMoved(const Records& old, const Records& now);

/// Whether only the selected cells have become blank.
Complaint rangeCleared(const CodePage& codePage, const Seen& before, const Records& old, const Records& now);

/// Whether no record has gone, and only those from the current one on differ.
Complaint pastedOver(const Seen& before, const Records& old, const Records& now);

/// Whether only records of the selected block and of its target differ.
Complaint blockPut(const Seen& before, const Seen& after, const Records& old, const Records& now);
