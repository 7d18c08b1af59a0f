#pragma once
// A walk of the monkey in a process of its own, and the search for the shortest list of keys that shows what it found.

#include "tests/monkey/monkey_key.h"

#include <string>
#include <vector>

/// How a walk's process ended.
struct WalkResult {
    std::string found{};  ///< one line that says what was found; empty: nothing
    std::string folder{}; ///< the digest of the files that it has left; empty if it didn't come to its end
    std::string output{}; ///< everything it printed
};

/// Starts this program again with `arguments` and waits for its end; one that takes longer than `patience` seconds is
/// ended and has found a standstill.
WalkResult walkInProcess(const std::vector<std::string>& arguments, int patience);

/// The trace cut down to the keys without which its walk would find nothing, or something else. Walks it again and
/// again, for `seconds` at most.
Trace shortestTrace(const Trace& trace, const std::string& found, const std::string& scratchFile, int seconds);
