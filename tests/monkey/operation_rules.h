#pragma once
// What an operation may change in the open table, each kind of operation in its own way; everything else must be as it
// was. A kind that isn't known here is not looked at: the rules of the pair hold for it all the same.

#include "tests/monkey/row_rules.h"

/// What the operations of a key do to a table.
enum class Effect {
    none,           ///< no operation, or one that is not known
    recordsRemoved, ///< a stretch of records goes
    recordsAdded,   ///< a stretch of blank records comes
    recordsMoved,   ///< the records come to stand in another order
    recordsPasted,  ///< a stretch of records comes from the clip file
    pastedOver,     ///< the clip file is put over the records from the current one on
    rangeCleared,   ///< the cells of the selected range become blank
    blockPut,       ///< a block is put elsewhere over the cells that are there
    itemsRemoved,   ///< the selected items go
    itemsAdded,     ///< items come in front of the selected ones
    itemsMoved,     ///< the items come to stand in another order
    itemsRecut,     ///< items get other widths or alignments
};

/// The effect that the commands in `ran` can have, begun in the state `before`.
Effect effectOf(const Seen& before, const std::vector<Text>& ran);

/// Whether the table changed as the effect allows, or not at all. The row that the user was in may have been saved
/// first.
Complaint changedByEffect(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now);
