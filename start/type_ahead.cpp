#include "start/type_ahead.h"

#include "platform/letter_case.h"

#include <algorithm>
#include <cmath>

namespace {

/// A rest of more seconds than this starts anew.
constexpr double longestRest = 1;

bool begins(TextView line, TextView beginning) {
    return line.size() >= beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), line.begin(),
                      [](char16_t typed, char16_t unit) { return typed == upperCase(unit); });
}

/// The first line from `first` on, round the end, that begins so behind its first `skipped` letters.
std::optional<int> lineFrom(const std::vector<Text>& lines, int first, TextView beginning, std::size_t skipped) {
    const int count = static_cast<int>(lines.size());
    for (int i = 0; i < count; ++i) {
        const int at = (first + i) % count;
        const TextView line = lines[static_cast<std::size_t>(at)];
        if (line.size() > skipped && begins(line.substr(skipped), beginning)) {
            return at;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<int> TypeAhead::type(char16_t typed, double now, const std::vector<Text>& lines, int current,
                                   bool alsoBehindFirst) {
    // The absolute value starts anew after midnight, when the clock has fallen back.
    if (std::abs(now - last_) > longestRest) {
        beginning_.clear();
    }
    last_ = now;
    beginning_ += upperCase(typed);
    const bool isRepeated = beginning_.find_first_not_of(beginning_.front()) == Text::npos;
    const TextView wanted = isRepeated ? TextView(beginning_).substr(0, 1) : TextView(beginning_);
    const int first = std::max(0, isRepeated ? current + 1 : current);
    auto found = lineFrom(lines, first, wanted, 0);
    if (!found && alsoBehindFirst) {
        found = lineFrom(lines, first, wanted, 1);
    }
    return found;
}
