#pragma once
// The input limit: from so many bytes on a cell is taken as typed, however wide its item is. Holding it back for a
// while is in limit_suspension.

#include "edit/edit_screen.h"

/// The menu entry: asks for the limit, 1 to 249 bytes; with a limit in force it asks whether to lift it. Label8 tells
/// the limit on a ground of another colour each way. The number held back by a suspension stays as it is.
void mnuLIMIT(EditScreen& edit);
