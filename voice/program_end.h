#pragma once
// The ends of the program by design. Each does what its end demands and then throws ProgramEnd, so that nothing behind
// the call runs; the event loops are closed by whoever catches it.

#include "sheet/zormod.h"

/// Closing Form1, its end entry, Esc with speech on: farewell, all files closed, "zorTalk" written.
[[noreturn]] void orderlyEnd(ZORMOD& zormod);

/// Giving up before any table is open (start screen, file choice, design): farewell, all files closed, "zorTalk" left as
/// it was, so a reading mode that was only tried out is forgotten.
[[noreturn]] void farewellEnd(ZORMOD& zormod);

/// Esc with speech off: nothing spoken, nothing written, the clipboard left as it is.
[[noreturn]] void endAtOnce(ZORMOD& zormod);
