#include "edit/range_state.h"

#include "platform/screen.h"

#include <algorithm>
#include <array>

bool isBeingChosen(const Text& taskWord) {
    return taskWord == u"HTYU" || isTargeting(taskWord);
}

bool isTargeting(const Text& taskWord) {
    static constexpr std::array<TextView, 4> words = {u"copy", u"move", u"moveitem", u"moverecord"};
    return std::find(words.begin(), words.end(), taskWord) != words.end();
}

void dropRange(ZORMOD& zormod) {
    zormod.selection = {};
    zormod.platform.screen.hideMask();
}
