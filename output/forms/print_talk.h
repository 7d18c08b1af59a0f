#pragma once
// What the desktop's printer says and asks, bound to the routines that decide it. main hands it to the printer.

#include "platform/qt/qt_printer.h"
#include "sheet/zormod.h"

/// The words round a printed document; `zormod` outlives them.
PrintTalk printTalk(ZORMOD& zormod);
