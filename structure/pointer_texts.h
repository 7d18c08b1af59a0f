#pragma once
// The words of the form in which the target of a move or a copy is chosen: its title, its instructions, the line that
// tells where the range would go, and what it says of itself. pointer_choice puts them together; nothing is decided here.
//
// A choice that a key began names the range and the operation. One that a menu entry began has the shorter words, the
// same for records, items and blocks.

#include "sheet/zormod.h"

/// How the choice was begun.
enum class PointerStart { byKey, byMenu };

/// The texts of the form that stay while it is open.
struct PointerWords {
    Text title{};
    Text carryOut{};     ///< caption of the button that carries the operation out
    Text instructions{};
};

/// The words for the operation in `taskWord` on the selected range, whose ends are in order.
PointerWords pointerWords(const ZORMOD& zormod, PointerStart start);

/// Which line is wanted: that of a block copy is spelled in one way when the form opens and in another after each move.
enum class PointerLine { first, afterMove };

/// The line of the operation in `taskWord`: the range and the place in front of which, or at which, it would stand.
Text pointerLine(const ZORMOD& zormod, PointerLine which);

/// What is said and shown while the operation runs.
TextView carryingOutText(TextView taskWord);

/// The status reading: file, number of records, current item, and what the user is to do. A move of items and of a block
/// hear the words of a move of records.
Text pointerStateReading(ZORMOD& zormod);
