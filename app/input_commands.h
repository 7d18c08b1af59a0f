#pragma once
// Binds the commands of the input helpers. bindCommands calls it.

#include "app/commands.h"

/// All references outlive the table's use.
void bindInputCommands(CommandTable& commands, EditScreen& edit);
