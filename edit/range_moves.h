#pragma once
// The keys that move the cursor while a range is drawn. They know nothing of the range itself: its end follows when the
// key is let go.

#include "edit/edit_screen.h"
#include "platform/keys.h"

/// Makes the move of a stroke, the window following and nothing going to the disk; false if it is none that moves. The
/// cursor is held at the edges of the table; only a step to the right may lead to the new record behind the last one.
bool moveDrawingCursor(EditScreen& edit, const KeyStroke& stroke);
