#pragma once
// Binds the commands that choose where a selected range is to go. bindCommands calls it.

#include "app/commands.h"

/// All references outlive the table's use.
void bindPointerCommands(CommandTable& commands, PointerChoice& pointer);
