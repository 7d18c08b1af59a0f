#include "sheet/failure_recovery.h"

#include "platform/dialogs.h"
#include "platform/screen.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/selection.h"
#include "sheet/swap_record.h"

#include <algorithm>

namespace {

void reopenTable(ZORMOD& zormod) {
    if (!hasTable(zormod)) {
        openDataFile(zormod);
    }
}

void readTableAgain(ZORMOD& zormod) {
    // The failure may have come between the two files of a swap, or amid the records of a change in place.
    finishInterrupted(zormod, zormod.file.fileName, zormod.file.fileDrive);
    if (!readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive).empty()) {
        // The refusal has told the user, and it has closed the table.
        return;
    }
    reopenTable(zormod);
    computeItemStart(zormod.items);
    Position& position = zormod.position;
    position.curItem = std::clamp<std::int16_t>(position.curItem, 0, zormod.items.itemCount);
    position.curRecord = std::clamp(position.curRecord, 1, recordCount(zormod) + 1);
    refillWindow(zormod, position.curRecord);
    zormod.platform.screen.showCurrentCell();
}

} // namespace

void putStateRight(ZORMOD& zormod, const RuntimeFailure& failure) {
    for (int fileNo = 2; fileNo <= 4; ++fileNo) {
        closeFile(zormod, fileNo);
    }
    zormod.platform.dialogs.closeProgress();
    zormod.taskWord.clear();
    zormod.results.answers[0] = 0.0;
    if (zormod.file.fileName.empty()) {
        return;
    }
    try {
        if (failure.rowWrite) {
            reopenTable(zormod);
            return;
        }
        giveUpSelection(zormod);
        readTableAgain(zormod);
    } catch (const RuntimeFailure&) {
        // The table itself can't be read any more; the report that follows tells the user so.
        closeAllFiles(zormod);
    }
}
