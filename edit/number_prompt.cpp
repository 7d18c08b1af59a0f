#include "edit/number_prompt.h"

#include "platform/beeper.h"
#include "platform/dialogs.h"
#include "platform/number_reader.h"
#include "transform/width_conversion.h"

std::optional<std::int16_t> askNumberWithin(ZORMOD& zormod, const NumberPrompt& question) {
    for (;;) {
        const Text answer = askTrimmed(zormod, question.prompt, question.title, question.defaultText);
        const double value = Val(answer);
        if (answer.empty() || (question.zeroGivesUp && value == 0)) {
            return {};
        }
        if (value >= question.lowest && value <= question.highest) {
            return roundTo16(value);
        }
        zormod.platform.beeper.beep();
    }
}

Text askTrimmed(ZORMOD& zormod, const Text& prompt, const Text& title, const Text& defaultText) {
    return trimmed(toHalfWidth(zormod.platform.dialogs.askText(prompt, title, defaultText)));
}
