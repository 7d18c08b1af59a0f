#include "edit/movement.h"

#include "edit/status_update.h"
#include "edit/table_memo.h"
#include "platform/beeper.h"
#include "platform/number_text.h"
#include "sheet/cell.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <algorithm>

namespace {

/// A range is being drawn: its form follows the cell, and nothing goes to the disk.
bool isDrawing(const ZORMOD& zormod) {
    return zormod.taskWord == u"HTYU";
}

bool isInWindow(const Position& position, std::int32_t record) {
    return record >= position.windowFirst && record - position.windowFirst < position.windowRows;
}

/// Refresh, status and the focus in the empty box, as a step between records ends.
void showArrival(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    zormod.platform.screen.redrawView();
    updateStatus(edit, zormod.position.curRecord, zormod.position.curItem, {});
    if (zormod.taskWord != u"moverecord") {
        clearInputBox(edit);
        giveInputBoxFocus(edit);
    }
}

/// Steps to the next item that takes input; gives true if the walk went past the last item. An item is visited once,
/// so a table in which none takes input goes to the next record like a walk past the end.
bool walkToInputItem(ZORMOD& zormod) {
    const std::int16_t count = zormod.items.itemCount;
    std::int16_t& item = zormod.position.curItem;
    bool wrapped = false;
    for (std::int16_t visited = 0; visited <= count; ++visited) {
        ++item;
        if (item > count) {
            item = 0;
            wrapped = true;
        }
        if (zormod.input.allItemsInput != 0 || zormod.items.itemInputMark[item] == 1) {
            break;
        }
    }
    return wrapped;
}

void stepIdNumber(EditScreen& edit, float step) {
    if (edit.zormod.input.idAutoOn != 0) {
        edit.zormod.input.idAutoValue += step;
        applyIdAuto(edit);
    }
}

} // namespace

void nextItem(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (walkToInputItem(zormod)) {
        nextRecord(edit);
        return;
    }
    if (isDrawing(zormod)) {
        return;
    }
    showCurrentCell(edit);
    if (zormod.taskWord != u"moveitem") {
        clearInputBox(edit);
        giveInputBoxFocus(edit);
    }
}

void prevItem(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    Position& position = zormod.position;
    if (position.curItem > 0) {
        --position.curItem;
    } else if (position.curRecord == 1) {
        zormod.platform.beeper.beep();
        return;
    } else {
        position.curItem = zormod.items.itemCount;
        prevRecord(edit);
    }
    if (isDrawing(zormod)) {
        return;
    }
    clearInputBox(edit);
    zormod.platform.screen.redrawView();
    updateStatus(edit, position.curRecord, position.curItem, {});
    if (zormod.taskWord != u"moveitem") {
        giveInputBoxFocus(edit);
    }
}

void nextRecord(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (!isDrawing(zormod)) {
        commitRecord(zormod);
    }
    Position& position = zormod.position;
    const std::int32_t next = position.curRecord + 1;
    const std::int32_t newRecord = recordCount(zormod) + 1;
    if (next > newRecord) {
        zormod.platform.beeper.beep();
        return;
    }
    if (next == newRecord && isInWindow(position, next)) {
        storeSlot(zormod, currentSlot(zormod) + 1, zormod.window.blankLine);
    }
    position.curRecord = next;
    if (isDrawing(zormod)) {
        return;
    }
    refillWindow(zormod, next);
    stepIdNumber(edit, 1);
    showArrival(edit);
}

void prevRecord(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (!isDrawing(zormod)) {
        commitRecord(zormod);
    }
    Position& position = zormod.position;
    // A window of two or three rows keeps the current record in its first row, so that there is nowhere to step up to.
    if (position.curRecord == 1 || position.curRecord - 1 < position.windowFirst) {
        zormod.platform.beeper.beep();
        return;
    }
    Bytes& row = zormod.window.recordWindow[currentSlot(zormod)];
    if (position.curRecord > recordCount(zormod) && row.compare(0, dataLength, zormod.window.blankLine) == 0) {
        storeSlot(zormod, currentSlot(zormod), zormod.window.slashLine);
    }
    --position.curRecord;
    stepIdNumber(edit, -1);
    if (isDrawing(zormod)) {
        return;
    }
    scrollWindowUp(zormod);
    showArrival(edit);
}

void applyIdAuto(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    Text id = trimmedStr(zormod.input.idAutoValue);
    const auto width = static_cast<std::size_t>(std::max<std::int16_t>(zormod.items.itemWidth[0], 0));
    // The text gets the exact width of the cell, so that the rule of the cell write has nothing left to align: that
    // rule tests for "R", and an alignment that is neither must put an ID to the right and a typed cell to the left.
    if (zormod.items.itemAlign[0] == u"L") {
        id.resize(width, u' ');
    } else if (id.size() < width) {
        id.insert(0, width - id.size(), u' ');
    } else {
        id.erase(0, id.size() - width);
    }
    setSlotCell(zormod, currentSlot(zormod), id, 0);
}

bool boxIsEmpty(const EditScreen& edit) {
    return edit.txtinputbox.text().find_first_not_of(u' ') == Text::npos;
}

bool commitTypedText(EditScreen& edit) {
    keepTypedMemo(edit);
    if (boxIsEmpty(edit)) {
        return false;
    }
    commitCell(edit.zormod, edit.txtinputbox.text());
    return true;
}

bool beepsWithoutTable(ZORMOD& zormod) {
    if (hasTable(zormod)) {
        return false;
    }
    zormod.platform.beeper.beep();
    return true;
}
