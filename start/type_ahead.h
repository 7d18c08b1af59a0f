#pragma once
// Finding a line of a list by typing its beginning. Letters that follow each other quickly belong to one beginning;
// after a rest a new one starts. One object serves one list; the list hands it every character typed.

#include "platform/text.h"

#include <optional>
#include <vector>

/// The beginning typed so far.
class TypeAhead {
public:
    /// The line to go to, 0-based, after `typed` at the time `now` (seconds); nothing if no line begins so. The same
    /// letter again goes on to the next line that begins with it. `current` is the line in force, -1 for none. Case
    /// doesn't count. With `alsoBehindFirst` a line may also begin so behind its first letter, for lists in which all
    /// names share that letter.
    std::optional<int> type(char16_t typed, double now, const std::vector<Text>& lines, int current,
                            bool alsoBehindFirst = false);

private:
    Text beginning_;
    double last_ = -1;
};
