#pragma once
// The blocking wait between two texts that must both be heard. It handles no event: no key can interleave with what is
// still to be said.

#include "platform/clock.h"

/// Waits `seconds` by the clock. A clock that runs backwards meanwhile (midnight) is a RuntimeFailure of kind overflow:
/// the wait is not carried on over midnight.
void waitOnClock(Clock& clock, double seconds);
