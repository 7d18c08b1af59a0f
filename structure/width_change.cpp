#include "structure/width_change.h"

#include "edit/movement.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/forms.h"
#include "platform/number_text.h"
#include "sheet/item_file.h"
#include "sheet/record_window.h"
#include "structure/width_rewrite.h"
#include "voice/announcement.h"

namespace {

constexpr TextView formName = u"frmFLN";
constexpr TextView task = u"chfln";

/// Bytes of all items together.
int widthSum(const ItemTable& items) {
    return items.itemStart[items.itemCount] + items.itemWidth[items.itemCount] - 1;
}

/// The row with the cell of `item` a byte longer or shorter, on the side where its alignment has blanks.
Bytes steppedRow(const Bytes& row, const ItemTable& items, std::int16_t item, int by) {
    const auto start = static_cast<std::size_t>(items.itemStart[item] - 1);
    const auto width = static_cast<std::size_t>(items.itemWidth[item]);
    Bytes cells = row.substr(0, static_cast<std::size_t>(widthSum(items)));
    const Bytes cell = cells.substr(start, width);
    const bool isLeft = items.itemAlign[item] == u"L";
    if (by > 0) {
        // A row behind the end of the file shows slashes and goes on showing them.
        const bool isSlashes = !cell.empty() && cell.find_first_not_of('/') == Bytes::npos;
        cells.insert(isLeft ? start + width : start, 1, isSlashes ? '/' : ' ');
    } else {
        cells.erase(isLeft ? start + width - 1 : start, 1);
    }
    return cells;
}

} // namespace

bool WidthChange::isGoingOn() const {
    return zormod_.taskWord == task;
}

bool WidthChange::begin() {
    if (beepsWithoutTable(zormod_)) {
        return false;
    }
    if (isBeingChosen(zormod_.taskWord)) {
        zormod_.platform.beeper.beep();
        return false;
    }
    if (!isGoingOn()) {
        commitTypedText(edit_);
        commitRecord(zormod_);
        zormod_.taskWord = Text(task);
        widthBefore_ = zormod_.items.itemWidth;
        showCurrentCell(edit_);
    }
    zormod_.platform.forms.open(formName);
    return true;
}

void WidthChange::start() {
    begin();
}

void WidthChange::startWidening() {
    if (begin()) {
        widen();
    }
}

void WidthChange::startNarrowing() {
    if (begin()) {
        narrow();
    }
}

KeyOutcome WidthChange::keyDown(const KeyStroke& stroke) {
    if (stroke.key == Key::tab || isModifierKey(stroke.key)) {
        return KeyOutcome::goesOn;
    }
    if (stroke == shiftKey(Key::space)) {
        widen();
    } else if (stroke == ctrlKey(Key::space)) {
        narrow();
    } else if (stroke == plainKey(Key::enter)) {
        apply();
    }
    return KeyOutcome::taken;
}

void WidthChange::widen() {
    if (!isGoingOn()) {
        leave();
    } else if (widthSum(zormod_.items) >= dataLength) {
        zormod_.platform.beeper.beep();
    } else {
        step(1);
    }
}

void WidthChange::narrow() {
    if (!isGoingOn()) {
        leave();
    } else if (zormod_.items.itemWidth[zormod_.position.curItem] >= 2) {
        step(-1);
    }
}

void WidthChange::step(int by) {
    ItemTable& items = zormod_.items;
    const std::int16_t item = zormod_.position.curItem;
    for (std::int32_t row = 1; row <= zormod_.position.windowRows; ++row) {
        storeSlot(zormod_, rowSlot(row), steppedRow(zormod_.window.recordWindow[rowSlot(row)], items, item, by));
    }
    items.itemWidth[item] = static_cast<std::int16_t>(items.itemWidth[item] + by);
    computeItemStart(items);
    talkS(zormod_, u"Width" + trimmedStr(items.itemWidth[item]));
    showCurrentCell(edit_);
}

void WidthChange::takeWidthsBefore() {
    if (isGoingOn()) {
        restore();
    } else {
        leave();
    }
}

void WidthChange::restore() {
    zormod_.items.itemWidth = widthBefore_;
    computeItemStart(zormod_.items);
    refillWindow(zormod_, zormod_.position.curRecord);
    showCurrentCell(edit_);
}

void WidthChange::takeWidthsAsRead() {
    if (!isGoingOn()) {
        leave();
        return;
    }
    ItemTable& items = zormod_.items;
    bool differs = false;
    for (std::int16_t item = 0; item <= items.itemCount; ++item) {
        items.itemWidth[item] = items.itemWidthAsRead[item];
        differs = differs || items.itemWidthAsRead[item] != widthBefore_[item];
    }
    computeItemStart(items);
    if (differs) {
        rewrite();
        zormod_.taskWord = Text(task);
    } else {
        writeItemFile(zormod_, zormod_.file.fileName, zormod_.file.fileDrive);
        refillWindow(zormod_, zormod_.position.curRecord);
        showCurrentCell(edit_);
    }
    widthBefore_ = items.itemWidth;
}

void WidthChange::apply() {
    if (isGoingOn()) {
        rewrite();
        // That the records are written is what the user is to hear, not the name of the box.
        edit_.readingState = ReadingState::cellSaid;
    }
    leave();
}

void WidthChange::rewrite() {
    try {
        rewriteWidths(zormod_, widthBefore_);
    } catch (const RuntimeFailure&) {
        // The change is over; who puts the state right reads the widths from the disk.
        zormod_.taskWord.clear();
        zormod_.platform.forms.close(formName);
        throw;
    }
}

void WidthChange::giveUp() {
    if (isGoingOn()) {
        restore();
    }
    leave();
}

void WidthChange::closed() {
    if (isGoingOn()) {
        giveUp();
    }
}

void WidthChange::leave() {
    zormod_.taskWord.clear();
    zormod_.platform.forms.close(formName);
    if (hasTable(zormod_)) {
        refillWindow(zormod_, zormod_.position.curRecord);
    }
    showCurrentCellAtRest(edit_);
}

Text WidthChange::description() const {
    return u"現在項目" + plainNumber(zormod_.position.curItem) +
           u"の項目幅操作中です。ｺﾝﾄﾛｰﾙｽﾍﾟｰｽで現在の項目幅縮小、ｼﾌﾄｽﾍﾟｰｽで拡大、CRで確定、エスケープで元通りです。";
}
