#include "tests/desktop/support/program_keys.h"

#include "tests/desktop/support/processes.h"
#include "tests/desktop/support/running_program.h"

namespace {

constexpr auto patience = std::chrono::seconds(10);

std::string activeWindow() {
    return outputOf("xdotool getactivewindow");
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
    return becomesTrue(
        [&] {
            const std::string now = activeWindow();
            return !now.empty() && now != before;
        },
        patience);
}

} // namespace

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
