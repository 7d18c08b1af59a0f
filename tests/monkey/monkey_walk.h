#pragma once
// A walk of the monkey: keys on one desk after the other until they are used up, and after each of them the look
// whether anything was lost. A walk that finds something ends its process on the spot with one line that says what, so
// that neither a crash nor a form that can't be left keeps anybody from being told. One that finds nothing ends with a
// line "FOLDER N", a digest of what it has left in its last folder: the same walk leaves the same.

#include "tests/monkey/monkey_key.h"

#include <functional>
#include <string>

/// The exit status of a process whose walk found something.
inline constexpr int foundSomething = 3;

/// Walks `steps` keys chosen from `seed`; a new table now and then. The trace of the walk on the table in hand stands
/// in the file `traceFile` at any time.
void walkAtRandom(std::uint64_t seed, long steps, const std::string& traceFile);

/// Walks the keys of a trace. `shows`: prints each key with where it went and what was said.
void walkAgain(const Trace& trace, bool shows);

/// Ends the process as a walk that found something.
[[noreturn]] void tellAndEnd(const std::string& what);
