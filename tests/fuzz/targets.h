#pragma once
// What reads bytes that the program didn't write itself, each as a function of any bytes: the readers of files, of file
// names, of numbers, of the code page, and of what other programs hand over. `./fuzz` feeds them with made-up bytes, and a
// test with those in tests/fuzz/corpus. A target ends the process if a reader breaks its promise; crashes and bad memory
// accesses are the sanitizers' business. docs/safety.md has the list with the promises.

#include "platform/text.h"

#include <string_view>
#include <vector>

/// One reader.
struct FuzzTarget {
    std::string_view name; ///< also the name of its folder in the corpus
    void (*run)(BytesView bytes);
};

/// All of them.
const std::vector<FuzzTarget>& fuzzTargets();
