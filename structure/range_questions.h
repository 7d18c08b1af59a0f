#pragma once
// What is asked before records or items of a selected range are deleted, cleared or inserted, and what is told when no
// range is selected. Called by the handlers of those commands, once each; the operations themselves ask nothing.

#include "sheet/zormod.h"

/// A question of the yes/no form.
struct RangeQuestion {
    TextView title;
    Text text;
};

/// The ends may come in either order. Records count from 1, items from 0.
RangeQuestion deleteRecordsQuestion(std::int32_t from, std::int32_t to);
RangeQuestion deleteItemsQuestion(std::int16_t from, std::int16_t to);
RangeQuestion clearRangeQuestion(const Selection& selection);
/// Tells one item less than are inserted; the wording has always been so.
RangeQuestion insertItemsQuestion(std::int16_t from, std::int16_t to);

/// True if the user says yes.
bool isAnsweredYes(ZORMOD& zormod, const RangeQuestion& question);

/// What a command needs that nobody has selected.
enum class MissingRange {
    itemsToInsert,  ///< `mnuINSITEM`
    blockToClear,   ///< `mnuZDEL`
    items,          ///< `mnuKILLITEM`, `mnuMITEM`
    records,        ///< `menuRKILL`, `mnuMREC`
    blockToCopy,    ///< `mnuCOPY`, `mnuMOVE`
    blockToClip,    ///< `mnuCLIP`
};

/// Tells the user to select a range first.
void tellMissingRange(ZORMOD& zormod, MissingRange missing);
