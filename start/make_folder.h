#pragma once
// The dialog behind every button that makes a folder. Each form with a folder box has such a button.

#include "sheet/zormod.h"

/// Asks for a name and makes a folder of that name in `folder`, a path in drive-letter form. True if it was made; an
/// empty answer makes none. A folder that can't be made is a RuntimeFailure.
bool makeFolder(ZORMOD& zormod, const Text& folder);

/// `folder`, "\" where it lacks one, `name`.
Text pathInFolder(const Text& folder, TextView name);
