#pragma once
// Binds the commands that design a table. bindCommands calls it; the edit screen comes in because typing is committed
// before its window is left, and because the table is shown on it afterwards.

#include "app/commands.h"

/// All references outlive the table's use.
void bindStructureCommands(CommandTable& commands, EditScreen& edit);
