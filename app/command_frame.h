#pragma once
// What stands before and behind every command that changes the table: what is typed is put safely away, and in the end
// the user is back in the empty input box.

#include "app/commands.h"
#include "edit/edit_screen.h"

#include <functional>

/// Binds a command that needs an open table: without one the user hears a beep and `routine` isn't run.
void bindWithTable(CommandTable& commands, EditScreen& edit, TextView name, std::function<void(EditScreen&)> routine);

/// Puts what is typed into the row and the row on the disk, and empties the input box. A row that can't be written is
/// thrown with the box as it was.
void leaveTyping(EditScreen& edit);

/// The same under a task word.
void beginTask(EditScreen& edit, TextView taskWord);

/// No task word, no range, the empty input box with the focus.
void endTask(EditScreen& edit);
