#pragma once
// A question for a number that is asked again, with a beep, until the answer is within its limits or the user gives up.
// The input helpers ask with it.

#include "sheet/zormod.h"

#include <optional>

/// The question and its limits, both allowed.
struct NumberPrompt {
    Text prompt{};
    Text title{};
    Text defaultText{};
    std::int16_t lowest = 0;
    std::int16_t highest = 0;
    /// An answer worth 0 gives up as an empty one does.
    bool zeroGivesUp = false;
};

/// The number, a half rounded to the even neighbour; compared with the limits before it is rounded. Nothing if the user
/// gave up.
std::optional<std::int16_t> askNumberWithin(ZORMOD& zormod, const NumberPrompt& question);

/// The answer of a question as it is taken: half width, without the blanks around it. Empty: the user gave up.
Text askTrimmed(ZORMOD& zormod, const Text& prompt, const Text& title, const Text& defaultText);
