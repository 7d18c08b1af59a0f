#include "structure/alignment_change.h"

#include "edit/movement.h"
#include "edit/side_boxes.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/letter_case.h"
#include "platform/screen.h"
#include "sheet/bulk_rewrite.h"
#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "transform/width_conversion.h"

namespace {

/// Puts the item's text into its cell anew in every record.
void realign(ZORMOD& zormod, std::int16_t item) {
    const BulkJob job{.items = BulkItems::own, .road = BulkRoad::inPlace, .canStop = false};
    bulkRewrite(zormod, job, [&](BulkRun& run) {
        run.forEach(1, run.records(), [&](const Bytes& row) {
            realignScratchCell(zormod, item);
            run.write(row);
        });
    });
}

} // namespace

void mnuRL(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    edit.zormod.platform.screen.focusField(PanelField::txtLR);
    sideBoxGotFocus(edit, PanelField::txtLR);
}

void changeAlignment(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    const std::int16_t item = zormod.position.curItem;
    const Text old = zormod.items.itemAlign[item];
    const Text wanted = upperCase(toHalfWidth(edit.txtLR));
    const bool isAlignment = wanted == u"R" || wanted == u"L";
    if (!isAlignment) {
        zormod.platform.beeper.beep();
    }
    if (!isAlignment || wanted == old) {
        setPanelText(edit, PanelField::txtLR, old);
        return;
    }
    // By the old alignment: what is typed was meant for the cell as it is.
    commitTypedText(edit);
    commitRecord(zormod);
    zormod.items.itemAlign[item] = wanted;
    realign(zormod, item);
}
