#pragma once
// Binds the commands that insert and delete items. bindCommands calls it.

#include "app/commands.h"
#include "edit/edit_screen.h"

/// All references outlive the table's use.
void bindItemCommands(CommandTable& commands, EditScreen& edit);
