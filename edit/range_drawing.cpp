#include "edit/range_drawing.h"

#include "edit/jumps.h"
#include "edit/range_moves.h"
#include "edit/range_reading.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "platform/commands.h"
#include "platform/forms.h"
#include "platform/number_text.h"
#include "platform/screen.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

constexpr TextView drawingWord = u"HTYU";

/// Keys that every form answers at key down, with the very texts that this one has for their key up.
bool hasSpokenAtKeyDown(const KeyStroke& stroke) {
    return stroke == ctrlShiftKey(Key::a) || stroke == ctrlShiftKey(Key::keypad1) || stroke == altKey(Key::m) ||
           stroke == altKey(Key::n);
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
    if (edit_.zormod.taskWord != drawingWord) {
        // An operation begun by the mouse has taken the word over meanwhile: its range is not the user's any more.
        dropRange(edit_.zormod);
        return KeyOutcome::taken;
    }
    if (moveDrawingCursor(edit_, stroke)) {
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
    if (edit_.zormod.taskWord != drawingWord) {
        return;
    }
    step();
    if (!hasSpokenAtKeyDown(stroke)) {
        RangeYOMi(edit_.zormod, readingOf(stroke));
    }
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
    edit_.zormod.platform.commands.run(u"mnuCLIP");
    if (edit_.zormod.selection.selectionKind == 0) {
        // The range is given up when it has been copied: the cells stay on the clipboard, without a word on top of them.
        edit_.readingState = ReadingState::cellSaid;
    }
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
    Selection& range = edit_.zormod.selection;
    putInOrder(range.selRecordFrom, range.selRecordTo);
    putInOrder(range.selItemFrom, range.selItemTo);
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
