#include "edit/cell_pick.h"

#include "edit/jumps.h"
#include "edit/movement.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "voice/speech_channel.h"

#include <algorithm>

void pickCell(EditScreen& edit, std::int32_t record, std::int16_t item) {
    ZORMOD& zormod = edit.zormod;
    if (!hasTable(zormod) || isBeingChosen(zormod.taskWord)) {
        return;
    }
    item = std::clamp<std::int16_t>(item, 0, zormod.items.itemCount);
    if (zormod.selection.selectionKind != 0) {
        dropRange(zormod);
        showCurrentCell(edit);
        giveInputBoxFocus(edit);
    } else if (record == zormod.position.curRecord) {
        goToItem(edit, item);
    } else if (record < 1 || record > recordCount(zormod)) {
        zormod.platform.beeper.beep();
    } else {
        // The row is safe before anything has moved, and only the record's change is spoken.
        commitTypedText(edit);
        commitRecord(zormod);
        {
            const SilentScope silent(zormod);
            goToItem(edit, item);
        }
        goToRecord(edit, record);
    }
}
