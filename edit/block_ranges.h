#pragma once
// Several blocks of records and of items, typed as two lists: what FrmBROCK does. Whoever needs them (printing, block
// extraction, the trend graph) sets the task word and calls askBlockRanges; the form shows this class and decides
// nothing.
//
// The lists come back in answers(0), records, and answers(1), items. They are texts in the notation of range_list.h:
// the caller copies them before any long loop, for such a loop has its stop flag in answers(0).

#include "sheet/zormod.h"

/// Opens FrmBROCK for the task word in force. True if the user gave two lists, which are valid then; under a word that
/// holds "MLINE" an empty list of records stands for all. False if the user gave up: answers(0) and (1) are empty, and
/// the task word is the caller's to clear.
bool askBlockRanges(ZORMOD& zormod);

/// The form's contents and work; a table is open.
class BlockRanges {
public:
    /// Empties answers(0) and answers(1): nothing has been chosen yet.
    explicit BlockRanges(ZORMOD& zormod);

    /// What became of the button.
    enum class Outcome {
        filledIn,       ///< an empty box got the whole range; the user presses once more
        faultInRecords, ///< told; the user corrects the list of records
        faultInItems,   ///< told; the user corrects the list of items
        chosen,         ///< both lists stand in answers
    };
    /// `Command1`, with what the boxes hold. What fillsIn leaves in `records` and `items` is to be shown.
    Outcome carryOut();

    Text records; ///< `Text1`
    Text items;   ///< `Text2`

    /// What the form says of itself.
    static Text guidance();
    /// The text of the form's label, lines ended by CR; its first line is another under "PRINT".
    Text label() const;

private:
    bool isTrend() const;
    Text wholeRecords() const;
    Text wholeItems() const;

    ZORMOD& zormod_;
    bool filledRecords_ = false; ///< the one time that an empty box is filled has been
    bool filledItems_ = false;
};
