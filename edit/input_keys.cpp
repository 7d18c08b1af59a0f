#include "edit/input_keys.h"

#include "edit/jumps.h"
#include "edit/limit_suspension.h"
#include "edit/movement.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/flag_scope.h"
#include "sheet/record_window.h"
#include "voice/caret_reading.h"
#include "voice/cell_reading.h"
#include "voice/speech_channel.h"

#include <array>

namespace {

constexpr std::int16_t cardView = 1;

/// A step to another record with what is typed put safely away first.
void stepRecord(EditScreen& edit, void (*step)(EditScreen&)) {
    const FlagScope busy(edit.commitBusy);
    if (commitTypedText(edit)) {
        commitRecord(edit.zormod);
        clearInputBox(edit);
    }
    step(edit);
}

void stepItem(EditScreen& edit, void (*step)(EditScreen&)) {
    const FlagScope busy(edit.commitBusy);
    step(edit);
}

void downKey(EditScreen& edit) { stepRecord(edit, nextRecord); }
void upKey(EditScreen& edit) { stepRecord(edit, prevRecord); }
void rightKey(EditScreen& edit) { stepItem(edit, nextItem); }
void leftKey(EditScreen& edit) { stepItem(edit, prevItem); }

void insertRecordKey(EditScreen& edit) {
    commitTypedText(edit);
    commitRecord(edit.zormod);
    edit.zormod.platform.commands.run(u"mnuINSREC1");
}

bool isRefusedInCardView(const ZORMOD& zormod) {
    if (zormod.display.viewMode != cardView) {
        return false;
    }
    zormod.platform.dialogs.showMessage(u"個別記録表示中は項目幅変更は出来ません", u"注意");
    return true;
}

void widenKey(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (isRefusedInCardView(zormod)) {
        return;
    }
    commitRecord(zormod);
    const ItemTable& items = zormod.items;
    if (items.itemStart[items.itemCount] + items.itemWidth[items.itemCount] - 1 < recordLength) {
        zormod.platform.commands.run(widenItemCommand);
    }
}

void narrowKey(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (isRefusedInCardView(zormod)) {
        return;
    }
    commitRecord(zormod);
    if (zormod.items.itemWidth[zormod.position.curItem] >= 2) {
        zormod.platform.commands.run(narrowItemCommand);
    } else {
        zormod.platform.beeper.beep();
    }
}

constexpr std::array<InputKey, 29> inputKeys = {{
    {plainKey(Key::down), false, downKey},
    {plainKey(Key::up), false, upKey},
    {ctrlKey(Key::down), false, mnuEXTD},
    {ctrlKey(Key::up), false, mnuEXTTOP},
    {plainKey(Key::right), true, rightKey},
    {plainKey(Key::left), true, leftKey},
    {ctrlKey(Key::right), false, mnuEXTR},
    {ctrlKey(Key::left), false, mnuEXTL},
    {ctrlShiftKey(Key::insert), false, insertRecordKey},
    {plainKey(Key::insert), true, nullptr, shiftCellsRightCommand},
    {plainKey(Key::del), true, nullptr, shiftCellsLeftCommand},
    {ctrlKey(Key::t), false, stepItemForward},
    {ctrlShiftKey(Key::t), false, stepItemBack},
    {plainKey(Key::pageUp), false, pageUp},
    {plainKey(Key::pageDown), false, pageDown},
    {plainKey(Key::space), true, toggleInputLimit, {}, KeyOutcome::goesOn, false},
    {plainKey(Key::end), true, toggleInputLimit, {}, KeyOutcome::goesOn, false},
    {ctrlKey(Key::keypad0), false, nullptr, u"formulaKey0"},
    {ctrlKey(Key::keypad1), false, nullptr, u"formulaKey1"},
    {ctrlKey(Key::keypad2), false, nullptr, u"formulaKey2"},
    {ctrlKey(Key::keypad3), false, nullptr, u"formulaKey3"},
    {ctrlKey(Key::keypad4), false, nullptr, u"formulaKey4"},
    {ctrlKey(Key::keypad5), false, nullptr, u"formulaKey5"},
    {ctrlKey(Key::keypad6), false, nullptr, u"formulaKey6"},
    {ctrlKey(Key::keypad7), false, nullptr, u"formulaKey7"},
    {ctrlKey(Key::keypad8), false, nullptr, u"formulaKey8"},
    {ctrlKey(Key::keypad9), false, nullptr, u"formulaKey9"},
    {shiftKey(Key::space), false, widenKey},
    {ctrlKey(Key::space), false, narrowKey},
}};

void readBoxText(EditScreen& edit, const BoxView& box) {
    sayThrottled(edit.zormod, boxTextReading(edit.zormod, box.text, box.selectionStart, box.selectionLength));
}
void readStoredData(EditScreen& edit, const BoxView&) { sayThrottled(edit.zormod, storedDataReading(edit.zormod)); }
void readStateFacts(EditScreen& edit, const BoxView&) {
    sayThrottled(edit.zormod, stateFactsReading(panelReadings(edit)));
}
void readItemFacts(EditScreen& edit, const BoxView&) {
    sayThrottled(edit.zormod, itemFactsReading(edit.zormod, panelReadings(edit)));
}
void readRowNumber(EditScreen& edit, const BoxView&) { sayThrottled(edit.zormod, rowNumberReading(edit.zormod)); }
void readFileFacts(EditScreen& edit, const BoxView&) {
    sayThrottled(edit.zormod, fileFactsReading(edit.zormod, panelReadings(edit)));
}
void readCell(EditScreen& edit, const BoxView&) { readCellKey(edit.zormod); }
void readRow(EditScreen& edit, const BoxView&) { readRowKey(edit.zormod); }
void readPinnedItem(EditScreen& edit, const BoxView&) { sayThrottled(edit.zormod, pinnedItemReading(edit.zormod)); }
void readPosition(EditScreen& edit, const BoxView& box) { readCaretPosition(edit.zormod, box); }
void readCharacter(EditScreen& edit, const BoxView& box) { readCaretChar(edit.zormod, box); }
void readPlainText(EditScreen& edit, const BoxView& box) {
    sayThrottled(edit.zormod, boxIsEmpty(edit) ? u"ブランク" : box.text);
}

constexpr std::array<ReadingKey, 19> readingKeys = {{
    {shiftKey(Key::pageDown), readBoxText, false},
    {ctrlShiftKey(Key::s), readBoxText, false},
    {ctrlKey(Key::pageDown), readStoredData},
    {ctrlShiftKey(Key::d), readStoredData},
    {ctrlShiftKey(Key::pageDown), readStateFacts, false},
    {ctrlShiftKey(Key::e), readStateFacts, false},
    {ctrlKey(Key::pageUp), readItemFacts},
    {ctrlShiftKey(Key::r), readItemFacts},
    {shiftKey(Key::pageUp), readRowNumber},
    {ctrlShiftKey(Key::w), readRowNumber},
    {ctrlShiftKey(Key::pageUp), readFileFacts},
    {ctrlShiftKey(Key::q), readFileFacts},
    {altKey(Key::n), readCell},
    {altKey(Key::m), readRow},
    {altKey(Key::g), readPinnedItem},
    {plainKey(Key::f12), readPosition, false},
    {plainKey(Key::left), readCharacter, false},
    {plainKey(Key::right), readCharacter, false},
    {plainKey(Key::shift), readPlainText, false},
}};

} // namespace

const InputKey* findInputKey(const KeyStroke& stroke, bool boxIsEmpty) {
    for (const InputKey& key : inputKeys) {
        if (key.stroke == stroke && (boxIsEmpty || !key.needsEmptyBox)) {
            return &key;
        }
    }
    return nullptr;
}

const ReadingKey* findReadingKey(const KeyStroke& stroke) {
    for (const ReadingKey& key : readingKeys) {
        if (key.stroke == stroke) {
            return &key;
        }
    }
    return nullptr;
}
