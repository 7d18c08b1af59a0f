#pragma once
// What stands before and behind every command that changes the table: what is typed is put safely away, and in the end
// the user is back in the empty input box.

#include "edit/edit_screen.h"

/// Puts what is typed into the row and the row on the disk, and empties the input box. A row that can't be written is
/// thrown with the box as it was.
void leaveTyping(EditScreen& edit);

/// The same under a task word.
void beginTask(EditScreen& edit, TextView taskWord);

/// No task word, no range, the empty input box with the focus.
void endTask(EditScreen& edit);
