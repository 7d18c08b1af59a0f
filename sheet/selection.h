#pragma once
// The end of a selected range, wherever it comes from: another table, a failure, a key. How ranges are drawn and used
// is the edit screen's business.

#include "sheet/zormod.h"

/// The forms in which a range is drawn and the target of a move or a copy is chosen.
inline constexpr TextView rangeForm = u"frmHANI";
inline constexpr TextView pointerForm = u"frmMSSG";

/// No range any more: no ends, no masks, and the forms of ranges closed. The task word stays; while it says that a
/// range is being drawn, the form that closes gives the range up by its own rules.
void giveUpSelection(ZORMOD& zormod);
