#pragma once
// What every room of the edit screen has to know about a selected range: whether one is being chosen right now, and how
// it is given up. The keys of ranges are in range_keys.h.

#include "sheet/zormod.h"

/// True while keys, not clicks or plain jumps, draw a range or look for the target of a move or a copy.
bool isBeingChosen(const Text& taskWord);

/// True while the target of a move or a copy is being chosen.
bool isTargeting(const Text& taskWord);

/// Gives the selected range up: no range, no mask. The current cell and the input box stay.
void dropRange(ZORMOD& zormod);
