#pragma once
// Binds the command that clears a range of cells. bindCommands calls it.

#include "app/commands.h"
#include "edit/edit_screen.h"

/// All references outlive the table's use.
void bindBlockCommands(CommandTable& commands, EditScreen& edit);
