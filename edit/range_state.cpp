#include "edit/range_state.h"

#include "platform/screen.h"

#include <algorithm>
#include <array>

bool isBeingChosen(const Text& taskWord) {
    static constexpr std::array<TextView, 5> words = {u"HTYU", u"copy", u"move", u"moveitem", u"moverecord"};
    return std::find(words.begin(), words.end(), taskWord) != words.end();
}

void dropRange(ZORMOD& zormod) {
    zormod.selection = {};
    zormod.platform.screen.hideMask();
}
