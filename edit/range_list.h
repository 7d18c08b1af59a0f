#pragma once
// The notation in which a user types several ranges at once: "10-15/80-100/3". A list is blocks separated by "/"; a
// block is a number or two joined by "-"; nothing else is allowed, blanks neither. Records count from 1, items from 0.
//
// Blocks keep the order in which they were written, and may repeat or overlap: work is done in that order. The ends of
// a block may stand either way round. The form that takes two such lists checks them here, and whoever works on a list
// walks it here. It knows nothing of tables or forms.

#include "platform/text.h"

#include <cstdint>
#include <optional>

/// What the numbers of a list count; the values are the ones callers have always passed.
enum class RangeListKind { records = 1, items = 2 };

/// A block: its smaller end first, both included. A number of any length has its value here, as far as 15 digits go;
/// what is longer counts as larger than any record.
struct RangeBlock {
    std::int64_t first = 0;
    std::int64_t last = 0;
    bool operator==(const RangeBlock&) const = default;
};

/// Takes the first block off `text` and the signs behind it. Nothing, and an empty text, if only signs are left. An
/// end without digits is 0, so "5-" reads as 0 to 5. Behind each cut only the next 255 characters are kept: a list
/// longer than that loses its tail.
std::optional<RangeBlock> nextRangeBlock(Text& text);

/// Checks a list against `highest`, the number of records or the highest item. Empty if all is well, else what is
/// wrong, for the user; the first fault counts. Uses `text` up: callers keep their own copy. A list without any block
/// is valid.
Text checkRangeList(Text& text, RangeListKind kind, std::int64_t highest);
