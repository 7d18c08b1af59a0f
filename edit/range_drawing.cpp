#include "edit/range_drawing.h"

#include "edit/jumps.h"
#include "edit/movement.h"
#include "edit/range_reading.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/forms.h"
#include "platform/number_text.h"
#include "platform/screen.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "voice/speech_channel.h"

#include <algorithm>
#include <array>

namespace {

constexpr TextView drawingWord = u"HTYU";

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
    if (zormod.selection.selectionKind == static_cast<std::int16_t>(RangeKind::records)) {
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

/// Keys that every form answers at key down, with the very texts that this one has for their key up.
bool hasSpokenAtKeyDown(const KeyStroke& stroke) {
    return stroke == ctrlShiftKey(Key::a) || stroke == altKey(Key::m) || stroke == altKey(Key::n);
}

RangeReading readingOf(const KeyStroke& stroke) {
    if (stroke == ctrlShiftKey(Key::d)) {
        return RangeReading::cell;
    }
    return stroke == ctrlShiftKey(Key::q) ? RangeReading::data : RangeReading::status;
}

template <typename Number> void putInOrder(Number& first, Number& last) {
    if (last < first) {
        std::swap(first, last);
    }
}

void putEndsInOrder(Selection& range) {
    putInOrder(range.selRecordFrom, range.selRecordTo);
    putInOrder(range.selItemFrom, range.selItemTo);
}

} // namespace

void RangeDrawing::start(RangeKind kind) {
    ZORMOD& zormod = edit_.zormod;
    const Position& here = zormod.position;
    zormod.selection = {.selectionKind = static_cast<std::int16_t>(kind),
                        .selRecordFrom = here.curRecord,
                        .selRecordTo = here.curRecord,
                        .selItemFrom = here.curItem,
                        .selItemTo = here.curItem};
    if (kind == RangeKind::records) {
        zormod.selection.selItemFrom = 0;
        zormod.selection.selItemTo = zormod.items.itemCount;
    } else if (kind == RangeKind::items) {
        zormod.selection.selRecordFrom = 1;
        zormod.selection.selRecordTo = recordCount(zormod);
    }
    // The numbering would write an ID into every record that the cursor passes upwards.
    zormod.input.idAutoOn = 0;
    prompt_ = u"どこまで？(ｶ-ｿﾙ移動+CR)";
    zormod.platform.forms.open(rangeForm);
    paintRange(zormod);
    zormod.taskWord = Text(drawingWord);
    show();
}

KeyOutcome RangeDrawing::keyDown(const KeyStroke& stroke) {
    if (stroke.key == Key::tab) {
        return KeyOutcome::goesOn;
    }
    if (move(stroke)) {
        return KeyOutcome::taken;
    }
    if (stroke == ctrlKey(Key::h)) {
        goToAskedItem();
    } else if (stroke == ctrlKey(Key::j)) {
        goToAskedRecord();
    } else if (stroke == ctrlKey(Key::insert)) {
        makeClip();
    } else if (stroke == shiftKey(Key::pageDown) || stroke == ctrlShiftKey(Key::s)) {
        RangeYOMi(edit_.zormod, RangeReading::status);
    }
    return KeyOutcome::taken;
}

void RangeDrawing::keyUp(const KeyStroke& stroke) {
    step();
    if (!hasSpokenAtKeyDown(stroke)) {
        RangeYOMi(edit_.zormod, readingOf(stroke));
    }
}

/// Makes the move of a stroke; false if it is none that moves.
bool RangeDrawing::move(const KeyStroke& stroke) {
    const auto* const key = std::find_if(drawingKeys.begin(), drawingKeys.end(),
                                         [&](const DrawingKey& candidate) { return candidate.stroke == stroke; });
    if (key == drawingKeys.end()) {
        return false;
    }
    ZORMOD& zormod = edit_.zormod;
    const std::int32_t before = zormod.position.curRecord;
    key->move(edit_);
    if (zormod.position.curRecord != before) {
        // A held key gives no key up between its steps, and each step looks for its row in the window.
        refillWindow(zormod, zormod.position.curRecord);
    }
    return true;
}

void RangeDrawing::goToAskedItem() {
    if (const auto item = askForItem(edit_.zormod)) {
        edit_.zormod.position.curItem = *item;
    }
    keyUp(plainKey(Key::left));
}

void RangeDrawing::goToAskedRecord() {
    const auto record = askForRecord(edit_.zormod);
    if (record && *record > 0) {
        edit_.zormod.position.curRecord = std::min(*record, lastRecord(edit_.zormod));
    }
    keyUp(plainKey(Key::up));
}

void RangeDrawing::makeClip() {
    putEndsInOrder(edit_.zormod.selection);
    edit_.zormod.platform.commands.run(u"mnuCLIP");
    cancel();
}

/// The end of the range follows the cursor.
void RangeDrawing::step() {
    ZORMOD& zormod = edit_.zormod;
    Selection& range = zormod.selection;
    if (kind() != RangeKind::items) {
        range.selRecordTo = zormod.position.curRecord;
    }
    if (kind() != RangeKind::records) {
        range.selItemTo = zormod.position.curItem;
    }
    refillWindow(zormod, zormod.position.curRecord);
    {
        const SilentScope silent(zormod);
        showCurrentCell(edit_);
    }
    paintRange(zormod);
    show();
}

void RangeDrawing::show() {
    if (shown_) {
        shown_();
    }
}

void RangeDrawing::finish() {
    putEndsInOrder(edit_.zormod.selection);
    leave();
}

void RangeDrawing::cancel() {
    dropRange(edit_.zormod);
    leave();
}

void RangeDrawing::closing() {
    if (edit_.zormod.taskWord == drawingWord) {
        cancel();
    }
}

void RangeDrawing::leave() {
    ZORMOD& zormod = edit_.zormod;
    zormod.taskWord.clear();
    zormod.input.idAutoOn = 0;
    zormod.platform.forms.close(rangeForm);
    zormod.platform.screen.redrawView();
    giveInputBoxFocus(edit_);
}

void RangeDrawing::takeFocus() {
    edit_.zormod.platform.forms.open(rangeForm);
    show();
}

Text RangeDrawing::title() const {
    switch (kind()) {
    case RangeKind::records:
        return u"記録範囲の指定";
    case RangeKind::items:
        return u"項目範囲の指定";
    default:
        return u"範囲の指定";
    }
}

RangeKind RangeDrawing::kind() const {
    return static_cast<RangeKind>(edit_.zormod.selection.selectionKind);
}

RangeFields RangeDrawing::fields() const {
    const Selection& range = edit_.zormod.selection;
    return {.Text1 = plainNumber(range.selRecordFrom),
            .Text2 = plainNumber(range.selRecordTo),
            .Text3 = plainNumber(range.selItemFrom),
            .Text4 = plainNumber(range.selItemTo)};
}
