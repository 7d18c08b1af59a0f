#pragma once
// What must hold after every key of a walk: the rules of the rows and of the pair put together, and what a user notices
// at once: a keyboard that somebody listens to, a program that isn't stuck, readings that end as readings do.

#include "tests/monkey/pair_rules.h"

/// Somebody listens to the keyboard: the control with the focus is there to be used and lies in the active window.
Complaint keyboardIsHeard();
/// Every text on the clipboard is a reading with its mark, or the user's own text; `key` may have copied one.
Complaint readingsAreMarked(MonkeyDesk& desk, const MonkeyKey& key);
/// No flag of a handler is left set, and a task word stands only while its window is up.
Complaint nothingIsStuck(MonkeyDesk& desk, const Seen& now);
/// The tables changed by this key as the commands allow that it has run. `now` is what is seen when no form is open any
/// more; if the program has ended it is without a table.
Complaint tableChangedAsItMay(MonkeyDesk& desk, const Seen& before, const Seen& now, const MonkeyKey& key);
