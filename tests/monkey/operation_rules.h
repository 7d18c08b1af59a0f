#pragma once
// What an operation may change in the open table, each kind of operation in its own way; everything else must be as it
// was. For a key that runs none see quiet_rules.

#include "tests/monkey/row_rules.h"

/// What the operations of a key do to a table.
enum class Effect {
    none,           ///< no operation
    recordsRemoved, ///< a stretch of records goes
    recordsAdded,   ///< a stretch of blank records comes
    recordsMoved,   ///< the records come to stand in another order
    recordsPasted,  ///< a stretch of records comes from the clip file
    pastedOver,     ///< the clip file is put over the records from the current one on
    pasteTakenBack, ///< the records that the last paste changed come back from its backup
    rangeCleared,   ///< the cells of the selected range become blank
    blockPut,       ///< a block is put elsewhere over the cells that are there
    itemsRemoved,   ///< the selected items go
    itemsAdded,     ///< items come in front of the selected ones
    itemsMoved,     ///< the items come to stand in another order
    itemsRecut,     ///< items get another alignment, or the table a new design
    widthsChanged,  ///< items get other widths
    designed,       ///< a table is designed, maybe one of this name: its items are others then, its records stay
};

/// The files of the last copy and of the last paste.
struct ClipFiles {
    std::string clip{};
    std::string backup{};
};

/// The effect that the commands in `ran` can have, begun in the state `before`.
Effect effectOf(const Seen& before, const std::vector<Text>& ran);

/// The K file has changed only if the effect is one on items; the user's memo in it doesn't count.
Complaint itemFileKept(Effect effect, const Seen& before, const Seen& now);

/// Whether the table, which is the same one still, changed as the effect of an operation allows, or not at all. The row
/// that the user was in may have been saved first.
Complaint changedByEffect(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now,
                          const ClipFiles& clips = {});
