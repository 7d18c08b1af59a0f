#pragma once
// Binds the commands of the start screen and of the entries that choose a file. bindCommands calls it; the edit screen
// comes in because typing is committed before its window is left, and because an opened table is shown on it.

#include "app/commands.h"

/// All references outlive the table's use.
void bindStartCommands(CommandTable& commands, EditScreen& edit);
