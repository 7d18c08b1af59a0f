#include "edit/range_moves.h"

#include "edit/jumps.h"
#include "edit/movement.h"
#include "platform/beeper.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::int16_t recordKind = 2;

void holdAtLast(EditScreen& edit) {
    std::int32_t& record = edit.zormod.position.curRecord;
    record = std::min(record, lastRecord(edit.zormod));
}

void down(EditScreen& edit) {
    nextRecord(edit);
    holdAtLast(edit);
}

void halfPageUp(EditScreen& edit) {
    Position& position = edit.zormod.position;
    position.curRecord -= position.windowRows / 2;
    if (position.curRecord < 1) {
        edit.zormod.platform.beeper.beep();
        position.curRecord = 1;
    }
}

void halfPageDown(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    std::int32_t& record = zormod.position.curRecord;
    record += zormod.position.windowRows / 2;
    if (zormod.selection.selectionKind == recordKind) {
        // A range of records stops two short of the end; single steps lead on from there.
        record = std::max(1, std::min(record, recordCount(zormod) - 2));
    }
    holdAtLast(edit);
}

void toLastRecord(EditScreen& edit) {
    edit.zormod.position.curRecord = lastRecord(edit.zormod);
}

void toFirstRecord(EditScreen& edit) {
    edit.zormod.position.curRecord = 1;
}

void toLastItem(EditScreen& edit) {
    edit.zormod.position.curItem = edit.zormod.items.itemCount;
}

void toFirstItem(EditScreen& edit) {
    edit.zormod.position.curItem = firstItem(edit.zormod);
}

void fiveItemsLeft(EditScreen& edit) {
    std::int16_t& item = edit.zormod.position.curItem;
    item = static_cast<std::int16_t>(item - 5);
    if (item < 0) {
        edit.zormod.platform.beeper.beep();
        item = 0;
    }
}

struct DrawingKey {
    KeyStroke stroke;
    void (*move)(EditScreen&);
};

constexpr std::array<DrawingKey, 11> drawingKeys = {{
    {plainKey(Key::down), down},
    {plainKey(Key::up), prevRecord},
    {plainKey(Key::left), prevItem},
    {plainKey(Key::right), nextItem},
    {ctrlKey(Key::down), toLastRecord},
    {ctrlKey(Key::up), toFirstRecord},
    {ctrlKey(Key::right), toLastItem},
    {ctrlKey(Key::left), toFirstItem},
    {plainKey(Key::pageUp), halfPageUp},
    {plainKey(Key::pageDown), halfPageDown},
    {ctrlShiftKey(Key::t), fiveItemsLeft},
}};

} // namespace

bool moveDrawingCursor(EditScreen& edit, const KeyStroke& stroke) {
    const auto* const key = std::find_if(drawingKeys.begin(), drawingKeys.end(),
                                         [&](const DrawingKey& candidate) { return candidate.stroke == stroke; });
    if (key == drawingKeys.end()) {
        return false;
    }
    ZORMOD& zormod = edit.zormod;
    const std::int32_t before = zormod.position.curRecord;
    key->move(edit);
    if (zormod.position.curRecord != before) {
        // A held key gives no key up between its steps, and each step looks for its row in the window.
        refillWindow(zormod, zormod.position.curRecord);
    }
    return true;
}
