#pragma once
// The readings of the sheet: what is said after a move, and what the reading keys of the edit screen say. All of them
// take the cell from the record window, never from the disk.

#include "sheet/zormod.h"

/// The texts of the panel that readings repeat.
struct PanelReadings {
    Text txtREC{}; ///< as shown, blanks included
    Text txtItemnum{};
    Text txtLR{};
    Text Label8{};
    Text Label11{};
    Text Label13{};
    Text memo{}; ///< RichTextBox2
};

/// Which of the two position boxes changed; each speaks for itself.
enum class MovedBox { record, item };

/// The reading of a move, without any throttle: pinned part, cell, position and tail as `speechMode` wants them.
Text cellMoveText(const ZORMOD& zormod, MovedBox box, const PanelReadings& panel);

/// The trimmed cell of the pinned item in the current record; empty if nothing is pinned.
Text pinnedData(const ZORMOD& zormod);
/// The title of the pinned display: number, "項目", ":" and the first 40 characters of the trimmed name.
Text pinnedTitle(const ZORMOD& zormod);

/// Alt+N: the cell with its numbers, behind the throttle test.
void readCellKey(ZORMOD& zormod);
/// Alt+M: the record, or its part in the selected items, behind the throttle test.
void readRowKey(ZORMOD& zormod);

/// The texts of the reading keys, to be said through the throttle by the caller.
Text boxTextReading(const ZORMOD& zormod, const Text& boxText, int selectionStart, int selectionLength);
Text storedDataReading(const ZORMOD& zormod);
Text itemFactsReading(const ZORMOD& zormod, const PanelReadings& panel);
Text rowNumberReading(const ZORMOD& zormod);
Text fileFactsReading(ZORMOD& zormod, const PanelReadings& panel);
Text stateFactsReading(const PanelReadings& panel);
Text pinnedItemReading(const ZORMOD& zormod);
