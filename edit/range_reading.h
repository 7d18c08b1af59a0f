#pragma once
// What is said of a range: while it is drawn, after every step and at the reading keys of its form; and when it is
// fixed, its whole contents. The texts have no limit of length: who asks for a range wants to hear it.

#include "sheet/zormod.h"

/// What the form of a range says at a key.
enum class RangeReading {
    status = 0, ///< where the cursor stands, what is in the cell, and how far the range reaches
    cell = 1,   ///< the cell with its numbers
    data = 2,   ///< all data of the range
};

/// The form's readings, behind the throttle test. Ends that are drawn the wrong way round are told as they are; the
/// data come in the order of the records. Needs a range: `selectionKind` 1 to 3.
void RangeYOMi(ZORMOD& zormod, RangeReading reading);

/// The reading of a fixed range, behind the throttle test: the data of each record, of an item range from the whole
/// file, and at the end of what kind the range is.
void Hread(ZORMOD& zormod);
