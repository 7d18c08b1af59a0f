#pragma once
// The check: which engines work on this machine, whether sound can be heard, and what gives a better voice. It finds
// out by trying each of them, prints what it found and says the most important of it. Called by main alone.

#include "reader/options.h"

/// Runs the check; true if speech can be heard.
bool runCheck(const Options& options);
