#pragma once
// Binds the commands of the clip file: copy, the two pastes and taking the last paste back. bindCommands calls it; the
// edit screen comes in because typing is committed before, and because the user is back in its input box after.

#include "app/commands.h"

/// All references outlive the table's use.
void bindClipCommands(CommandTable& commands, EditScreen& edit);
