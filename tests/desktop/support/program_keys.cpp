#include "tests/desktop/support/program_keys.h"

#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/running_program.h"

namespace {

constexpr auto patience = std::chrono::seconds(10);

std::string activeWindow() {
    return outputOf("xdotool getactivewindow");
}

bool anotherComesUp(const std::string& before, std::chrono::milliseconds within) {
    return becomesTrue(
        [&] {
            const std::string now = activeWindow();
            return !now.empty() && now != before;
        },
        within);
}

bool press(const std::string& step) {
    if (step.starts_with('=')) {
        typeText(step.substr(1));
        return true;
    }
    if (!step.ends_with('>')) {
        pressKey(step);
        return true;
    }
    const std::string before = activeWindow();
    pressKey(step.substr(0, step.size() - 1));
    return anotherComesUp(before, patience);
}

} // namespace

bool takesKeys(const std::string& opens) {
    const std::string before = activeWindow();
    const auto answers = [&] {
        pressKey(opens);
        return anotherComesUp(before, std::chrono::seconds(1));
    };
    return becomesTrue(answers, patience) && press("Escape>");
}

bool pressOnTheWay(const std::vector<std::string>& steps) {
    for (const std::string& step : steps) {
        if (!press(step)) {
            return false;
        }
    }
    return true;
}

bool windowComesUp(const std::string& part) {
    return becomesTrue(
        [&] { return outputOf("xdotool getactivewindow getwindowname").find(part) != std::string::npos; }, patience);
}
