#pragma once
// Binds the commands by which ranges are begun and read, and by which the focus goes to the form that draws one.
// bindCommands calls it.

#include "app/commands.h"

/// All references outlive the table's use.
void bindRangeCommands(CommandTable& commands, Routines& routines);
