#pragma once
// Binds the commands that insert and delete records and those that shift the cells of the current one. bindCommands calls
// it; the edit screen comes in because typing is committed before, and because the user is back in its input box after.

#include "app/commands.h"

/// All references outlive the table's use.
void bindRecordCommands(CommandTable& commands, EditScreen& edit);
