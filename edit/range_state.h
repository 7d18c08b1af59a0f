#pragma once
// What every room of the edit screen has to know about a selected range: whether one is being chosen right now, and how
// it is given up. The keys of ranges are in range_keys.h.

#include "sheet/selection.h"

/// True while keys, not clicks or plain jumps, draw a range or look for the target of a move or a copy.
bool isBeingChosen(const Text& taskWord);

/// True while the target of a move or a copy is being chosen.
bool isTargeting(const Text& taskWord);

/// Shows the selected range in the view in force, in the colour of its kind. Ends outside the table are put right: items
/// end with the last item, records with the last record, and in an empty file both ends are record 1. Ends may be the
/// wrong way round. Nothing is shown without a range.
void paintRange(ZORMOD& zormod);

/// Gives the selected range up, whether it is fixed, being drawn or on its way to a target: no range, no masks, and the
/// forms by which it is drawn or moved are closed. The current cell and the input box stay.
void dropRange(ZORMOD& zormod);
