#include "edit/range_state.h"

#include "platform/screen.h"
#include "sheet/record_file.h"

#include <algorithm>
#include <array>

bool isBeingChosen(const Text& taskWord) {
    return taskWord == u"HTYU" || isTargeting(taskWord);
}

bool isTargeting(const Text& taskWord) {
    static constexpr std::array<TextView, 4> words = {u"copy", u"move", u"moveitem", u"moverecord"};
    return std::find(words.begin(), words.end(), taskWord) != words.end();
}

void paintRange(ZORMOD& zormod) {
    Selection& range = zormod.selection;
    if (range.selectionKind == 0) {
        return;
    }
    const std::int32_t lastRecord = std::max(1, recordCount(zormod));
    for (std::int32_t* record : {&range.selRecordFrom, &range.selRecordTo}) {
        *record = std::clamp(*record, 1, lastRecord);
    }
    for (std::int16_t* item : {&range.selItemFrom, &range.selItemTo}) {
        *item = std::clamp<std::int16_t>(*item, 0, zormod.items.itemCount);
    }
    zormod.platform.screen.paintMask(range.selectionKind == 1 ? MaskKind::block : MaskKind::wholes,
                                     {.firstRecord = std::min(range.selRecordFrom, range.selRecordTo),
                                      .lastRecord = std::max(range.selRecordFrom, range.selRecordTo),
                                      .firstItem = std::min(range.selItemFrom, range.selItemTo),
                                      .lastItem = std::max(range.selItemFrom, range.selItemTo)});
}

void dropRange(ZORMOD& zormod) {
    // First the word: a form that closes while it is in force would give the range up once more.
    if (isBeingChosen(zormod.taskWord)) {
        zormod.taskWord.clear();
    }
    giveUpSelection(zormod);
}
