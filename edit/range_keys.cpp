#include "edit/range_keys.h"

#include "edit/movement.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/dialogs.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::int16_t blockKind = 1;
constexpr std::int16_t recordKind = 2;
constexpr std::int16_t itemKind = 3;
constexpr std::int16_t cardView = 1;

struct StartKey {
    KeyStroke stroke;
    bool needsEmptyBox; ///< with text in the box the stroke selects in it
    TextView command;
};

constexpr std::array<StartKey, 8> startKeys = {{
    {shiftKey(Key::up), false, startBlockRangeCommand},
    {shiftKey(Key::down), false, startBlockRangeCommand},
    {shiftKey(Key::left), true, startBlockRangeCommand},
    {shiftKey(Key::right), true, startBlockRangeCommand},
    {altKey(Key::up), false, startRecordRangeCommand},
    {altKey(Key::down), false, startRecordRangeCommand},
    {altKey(Key::left), false, startItemRangeCommand},
    {altKey(Key::right), false, startItemRangeCommand},
}};

struct FixedKey {
    std::int16_t kind;
    KeyStroke stroke;
    TextView command;
};

constexpr std::array<FixedKey, 21> fixedKeys = {{
    {blockKind, plainKey(Key::del), u"mnuZDEL"},
    {blockKind, ctrlKey(Key::left), moveRangeBlockCommand},
    {blockKind, ctrlKey(Key::right), moveRangeBlockCommand},
    {blockKind, ctrlKey(Key::up), moveRangeBlockCommand},
    {blockKind, ctrlKey(Key::down), moveRangeBlockCommand},
    {blockKind, plainKey(Key::left), copyRangeBlockCommand},
    {blockKind, plainKey(Key::right), copyRangeBlockCommand},
    {blockKind, plainKey(Key::up), copyRangeBlockCommand},
    {blockKind, plainKey(Key::down), copyRangeBlockCommand},
    {recordKind, plainKey(Key::del), u"menuRKILL"},
    {recordKind, plainKey(Key::insert), insertRangeRecordsCommand},
    {recordKind, plainKey(Key::up), moveRangeRecordsUpCommand},
    {recordKind, plainKey(Key::down), moveRangeRecordsDownCommand},
    {recordKind, ctrlKey(Key::up), moveRangeRecordsUpCommand},
    {recordKind, ctrlKey(Key::down), moveRangeRecordsDownCommand},
    {itemKind, plainKey(Key::del), u"mnuKILLITEM"},
    {itemKind, plainKey(Key::insert), u"mnuINSITEM"},
    {itemKind, plainKey(Key::left), moveRangeItemsLeftCommand},
    {itemKind, plainKey(Key::right), moveRangeItemsRightCommand},
    {itemKind, ctrlKey(Key::left), moveRangeItemsLeftCommand},
    {itemKind, ctrlKey(Key::right), moveRangeItemsRightCommand},
}};

} // namespace

bool startsRange(EditScreen& edit, const KeyStroke& stroke) {
    const auto* const key = std::find_if(startKeys.begin(), startKeys.end(), [&](const StartKey& candidate) {
        return candidate.stroke == stroke && (!candidate.needsEmptyBox || boxIsEmpty(edit));
    });
    if (key == startKeys.end()) {
        return false;
    }
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return true;
    }
    if (zormod.position.curRecord > recordCount(zormod)) {
        zormod.platform.beeper.beep();
        return true;
    }
    if (zormod.display.viewMode == cardView) {
        zormod.platform.dialogs.showMessage(u"個別記録表示中は範囲の指定は出来ません", u"注意");
        giveInputBoxFocus(edit);
        return true;
    }
    // The cursor leaves the cell: what is typed belongs to it, not to the cell at the range's end.
    commitTypedText(edit);
    commitRecord(zormod);
    clearInputBox(edit);
    zormod.platform.commands.run(key->command);
    return true;
}

KeyOutcome fixedRangeKey(EditScreen& edit, const KeyStroke& stroke) {
    ZORMOD& zormod = edit.zormod;
    if (isModifierKey(stroke.key)) {
        if (stroke == plainKey(Key::shift)) {
            zormod.platform.commands.run(readRangeCommand);
        }
        return KeyOutcome::goesOn;
    }
    if (stroke == ctrlKey(Key::f)) {
        commitRecord(zormod);
        zormod.platform.commands.run(u"mnuF");
        return KeyOutcome::taken;
    }
    const auto* const key = std::find_if(fixedKeys.begin(), fixedKeys.end(), [&](const FixedKey& candidate) {
        return candidate.kind == zormod.selection.selectionKind && candidate.stroke == stroke;
    });
    if (key == fixedKeys.end()) {
        cancelRange(edit);
        return KeyOutcome::taken;
    }
    if (key->command == insertRangeRecordsCommand) {
        commitTypedText(edit);
        commitRecord(zormod);
    }
    zormod.platform.commands.run(key->command);
    return KeyOutcome::taken;
}

void cancelRange(EditScreen& edit) {
    dropRange(edit.zormod);
    edit.zormod.platform.screen.redrawView();
    showCurrentCellAtRest(edit);
}
