#pragma once
// Binds the commands that change an item's width and alignment. bindCommands calls it.

#include "app/commands.h"

/// All references outlive the table's use.
void bindWidthCommands(CommandTable& commands, WidthChange& width, EditScreen& edit);
