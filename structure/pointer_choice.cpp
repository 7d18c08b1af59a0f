#include "structure/pointer_choice.h"

#include "edit/jumps.h"
#include "edit/movement.h"
#include "edit/range_keys.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/forms.h"
#include "platform/screen.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "start/table_opening.h"
#include "structure/block_operations.h"
#include "structure/item_operations.h"
#include "structure/record_operations.h"
#include "voice/announcement.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::int16_t blockKind = 1;
constexpr std::int16_t recordKind = 2;
constexpr std::int16_t itemKind = 3;

void sortEnds(Selection& range) {
    if (range.selRecordFrom > range.selRecordTo) {
        std::swap(range.selRecordFrom, range.selRecordTo);
    }
    if (range.selItemFrom > range.selItemTo) {
        std::swap(range.selItemFrom, range.selItemTo);
    }
}

bool isDigit(const KeyStroke& stroke) {
    const bool isDigitKey = (stroke.key >= Key::digit0 && stroke.key <= Key::digit9) ||
                            (stroke.key >= Key::keypad0 && stroke.key <= Key::keypad9);
    return isDigitKey && stroke == plainKey(stroke.key);
}

bool isArrow(Key key) { return key == Key::left || key == Key::right || key == Key::up || key == Key::down; }

bool isAcross(Key key) { return key == Key::left || key == Key::right; }

} // namespace

void PointerChoice::putTypedTextAway() {
    commitTypedText(edit_);
    commitRecord(zormod_);
    sortEnds(zormod_.selection);
}

std::optional<std::int16_t> PointerChoice::itemPlace(Towards side) const {
    const Selection& range = zormod_.selection;
    if (side == Towards::start) {
        // Next to the ID item the pointer stands on the range itself; the first step leads off it.
        return range.selItemFrom <= 0 ? std::optional<std::int16_t>()
                                      : std::max<std::int16_t>(range.selItemFrom - 1, 1);
    }
    const int place = range.selItemTo + 2;
    return place > zormod_.items.itemCount ? std::optional<std::int16_t>() : static_cast<std::int16_t>(place);
}

std::optional<std::int32_t> PointerChoice::recordPlace(Towards side) {
    const Selection& range = zormod_.selection;
    if (side == Towards::start) {
        return range.selRecordFrom < 2 ? std::optional<std::int32_t>() : range.selRecordFrom - 1;
    }
    return range.selRecordTo > recordCount(zormod_) - 2 ? std::optional<std::int32_t>() : range.selRecordTo + 2;
}

void PointerChoice::startItems(Towards side) {
    putTypedTextAway();
    const auto place = itemPlace(side);
    if (place) {
        moveItemsFrom(*place, PointerStart::byKey);
        return;
    }
    zormod_.platform.beeper.beep();
    if (!itemPlace(Towards::start) && !itemPlace(Towards::end)) {
        cancelRange(edit_);
    }
}

void PointerChoice::startRecords(Towards side) {
    putTypedTextAway();
    if (const auto place = recordPlace(side)) {
        moveRecordsFrom(*place, PointerStart::byKey);
    } else {
        zormod_.platform.beeper.beep();
    }
}

void PointerChoice::startBlock(TextView task) {
    putTypedTextAway();
    blockFrom(task, PointerStart::byKey);
}

bool PointerChoice::hasRange(std::int16_t kind, MissingRange missing) {
    if (beepsWithoutTable(zormod_)) {
        return false;
    }
    if (zormod_.selection.selectionKind != kind) {
        tellMissingRange(zormod_, missing);
        giveInputBoxFocus(edit_);
        return false;
    }
    putTypedTextAway();
    return true;
}

void PointerChoice::mnuMITEM() {
    if (!hasRange(itemKind, MissingRange::items)) {
        return;
    }
    const auto behind = itemPlace(Towards::end);
    if (const auto place = behind ? behind : itemPlace(Towards::start)) {
        moveItemsFrom(*place, PointerStart::byMenu);
    } else {
        zormod_.platform.beeper.beep();
        cancelRange(edit_);
    }
}

void PointerChoice::mnuMREC() {
    if (!hasRange(recordKind, MissingRange::records)) {
        return;
    }
    const auto behind = recordPlace(Towards::end);
    if (const auto place = behind ? behind : recordPlace(Towards::start)) {
        moveRecordsFrom(*place, PointerStart::byMenu);
    } else {
        zormod_.platform.beeper.beep();
        cancelRange(edit_);
    }
}

void PointerChoice::mnuCOPY() {
    if (hasRange(blockKind, MissingRange::blockToCopy)) {
        blockFrom(u"copy", PointerStart::byMenu);
    }
}

void PointerChoice::mnuMOVE() {
    if (hasRange(blockKind, MissingRange::blockToCopy)) {
        blockFrom(u"move", PointerStart::byMenu);
    }
}

void PointerChoice::moveItemsFrom(std::int16_t place, PointerStart start) {
    zormod_.taskWord = u"moveitem";
    zormod_.selection.moveAnchor = place;
    zormod_.position.curItem = place;
    open(start);
}

void PointerChoice::moveRecordsFrom(std::int32_t place, PointerStart start) {
    zormod_.taskWord = u"moverecord";
    zormod_.selection.moveAnchor = place;
    zormod_.position.curRecord = place;
    open(start);
}

void PointerChoice::blockFrom(TextView task, PointerStart start) {
    zormod_.taskWord = Text(task);
    zormod_.position.curRecord = zormod_.selection.selRecordFrom;
    zormod_.position.curItem = zormod_.selection.selItemFrom;
    open(start);
}

void PointerChoice::open(PointerStart start) {
    words_ = pointerWords(zormod_, start);
    refillWindow(zormod_, zormod_.position.curRecord);
    showCurrentCell(edit_);
    show(pointerLine(zormod_, PointerLine::first));
    paintMasks();
    zormod_.platform.forms.open(pointerForm);
}

KeyOutcome PointerChoice::keyDown(const KeyStroke& stroke) {
    if (stroke.key == Key::tab || isModifierKey(stroke.key)) {
        return KeyOutcome::goesOn;
    }
    if (!isTargeting(zormod_.taskWord)) {
        // Something else has ended the task meanwhile.
        giveUp();
    } else if (stroke == plainKey(Key::enter)) {
        carryOut();
    } else if (stroke == ctrlKey(Key::j)) {
        mnuJUMP(edit_);
    } else if (stroke == ctrlKey(Key::h)) {
        mnuHJ(edit_);
    } else if (isDigit(stroke)) {
        ask();
    } else if (isArrow(stroke.key) && !stroke.shift && !stroke.alt) {
        arrow(stroke);
    }
    return KeyOutcome::taken;
}

void PointerChoice::keyUp(const KeyStroke& stroke) {
    if (hasTable(zormod_) && (stroke == shiftKey(Key::pageDown) || stroke == ctrlShiftKey(Key::s))) {
        talkS(zormod_, pointerStateReading(zormod_));
    }
}

void PointerChoice::ask() {
    if (zormod_.taskWord == u"moverecord") {
        mnuJUMP(edit_);
    } else {
        mnuHJ(edit_);
    }
}

void PointerChoice::arrow(const KeyStroke& stroke) {
    const bool movesItems = zormod_.taskWord == u"moveitem";
    const bool movesRecords = zormod_.taskWord == u"moverecord";
    if (movesItems && !isAcross(stroke.key)) {
        zormod_.platform.beeper.beep();
    } else if (stroke.ctrl) {
        edge(stroke.key);
    } else if (movesRecords && isAcross(stroke.key)) {
        zormod_.platform.beeper.beep();
    } else if (movesItems || movesRecords) {
        stepPointer(stroke.key == Key::left || stroke.key == Key::up ? -1 : 1);
    } else {
        using Step = void (*)(EditScreen&);
        const Step step = stroke.key == Key::left    ? prevItem
                          : stroke.key == Key::right ? nextItem
                          : stroke.key == Key::up    ? prevRecord
                                                     : nextRecord;
        step(edit_);
        follow();
    }
}

void PointerChoice::edge(Key key) {
    switch (key) {
    case Key::left:
        return mnuEXTL(edit_);
    case Key::right:
        return mnuEXTR(edit_);
    case Key::up:
        return mnuEXTTOP(edit_);
    default:
        return mnuEXTD(edit_);
    }
}

void PointerChoice::stepPointer(int step) {
    Selection& range = zormod_.selection;
    const bool movesItems = zormod_.taskWord == u"moveitem";
    const std::int32_t from = movesItems ? range.selItemFrom : range.selRecordFrom;
    const std::int32_t to = movesItems ? range.selItemTo : range.selRecordTo;
    const std::int32_t first = movesItems ? 0 : 1;
    // Behind the last record there is a place too: the end of the file.
    const std::int32_t last = movesItems ? zormod_.items.itemCount : recordCount(zormod_) + 1;
    const auto isInRange = [&](std::int32_t at) { return at >= from && at <= to; };
    std::int32_t place = range.moveAnchor + step;
    const bool touchesRange = isInRange(place) || isInRange(range.moveAnchor);
    if (isInRange(place)) {
        place = step > 0 ? to + 1 : from - 1;
    }
    if (place < first || place > last) {
        zormod_.platform.beeper.beep();
        // The range lies at the edge, and the pointer may not rest in it.
        place = !touchesRange ? range.moveAnchor : step > 0 ? from - 1 : to + 1;
    }
    if (movesItems) {
        zormod_.position.curItem = static_cast<std::int16_t>(place);
    } else {
        zormod_.position.curRecord = place;
        refillWindow(zormod_, place);
    }
    showCurrentCell(edit_);
    follow();
}

void PointerChoice::jumped() {
    follow();
    focusBox();
}

void PointerChoice::follow() {
    if (zormod_.taskWord == u"moveitem") {
        zormod_.selection.moveAnchor = zormod_.position.curItem;
    } else if (zormod_.taskWord == u"moverecord") {
        zormod_.selection.moveAnchor = zormod_.position.curRecord;
    }
    show(pointerLine(zormod_, PointerLine::afterMove));
    paintMasks();
}

void PointerChoice::show(Text line) {
    line_ = std::move(line);
    if (show_) {
        show_();
    }
}

void PointerChoice::focusBox() {
    if (focus_) {
        focus_();
    }
}

void PointerChoice::paintMasks() {
    paintRange(zormod_);
    const Selection& range = zormod_.selection;
    const Position& at = zormod_.position;
    const std::int16_t lastItem = zormod_.items.itemCount;
    CellRange target{at.curRecord, at.curRecord, at.curItem, at.curItem};
    if (zormod_.taskWord == u"moveitem") {
        target.firstRecord = 1;
        target.lastRecord = lastRecord(zormod_);
    } else if (zormod_.taskWord == u"moverecord") {
        target.firstItem = 0;
        target.lastItem = lastItem;
    } else {
        const std::int32_t end = at.curRecord + range.selRecordTo - range.selRecordFrom;
        target.lastRecord = std::max(at.curRecord, std::min(lastRecord(zormod_), end));
        target.lastItem = static_cast<std::int16_t>(std::min<int>(lastItem, at.curItem + range.selItemTo - range.selItemFrom));
    }
    zormod_.platform.screen.paintMask(MaskKind::target, target);
}

void PointerChoice::carryOut() {
    if (isTargeting(zormod_.taskWord)) {
        show(Text(carryingOutText(zormod_.taskWord)));
        talkS(zormod_, line_);
        run(zormod_.taskWord);
    }
    leave();
}

void PointerChoice::run(const Text& task) {
    sortEnds(zormod_.selection);
    const Selection range = zormod_.selection;
    if (task == u"copy") {
        copyBlock(zormod_);
        return;
    }
    if (task == u"move") {
        moveBlock(zormod_);
        return;
    }
    const bool movesItems = task == u"moveitem";
    const std::int32_t from = movesItems ? range.selItemFrom : range.selRecordFrom;
    const std::int32_t to = movesItems ? range.selItemTo : range.selRecordTo;
    if (range.moveAnchor >= from && range.moveAnchor <= to) {
        zormod_.platform.beeper.beep();
        zormod_.platform.dialogs.showMessage(u"移動点と移動項目範囲と重なっています", u"移動点の再設定");
    } else if (movesItems) {
        const auto pointer = static_cast<std::int16_t>(range.moveAnchor);
        if (moveItems(zormod_, range.selItemFrom, range.selItemTo, pointer) == BulkEnd::done) {
            zormod_.platform.commands.run(showOpenedTableCommand);
        }
    } else {
        moveRecords(zormod_, from, to, range.moveAnchor);
    }
}

void PointerChoice::giveUp() {
    if (zormod_.taskWord == u"work") {
        zormod_.results.answers[0] = 1.0;
        return;
    }
    leave();
}

void PointerChoice::closed() {
    if (isTargeting(zormod_.taskWord)) {
        leave();
    }
}

void PointerChoice::leave() {
    zormod_.taskWord.clear();
    dropRange(zormod_);
    if (hasTable(zormod_)) {
        refillWindow(zormod_, zormod_.position.curRecord);
    }
    showCurrentCellAtRest(edit_);
}
