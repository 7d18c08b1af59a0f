#include "edit/items_to_input.h"

#include "edit/movement.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/forms.h"
#include "platform/number_text.h"
#include "voice/speech_channel.h"

namespace {

constexpr std::size_t numberColumns = 5;
constexpr TextView instructionText =
    u"↑↓で項目を移動してＹ又はその他のキーをﾀｯﾁするか、ｸﾘｯｸする事で項目指定が出来ます。その後OKﾎﾞﾀﾝを｡"
    u"中止はescを｡以後､ｾﾙ記入が終われば自動的に､指定項目にｶｰｿﾙが移動します｡";

/// The numbers of the marked items, joined by commas.
Text markedNumbers(const ItemTable& items) {
    Text numbers;
    for (std::int16_t item = 0; item <= items.itemCount; ++item) {
        if (items.itemInputMark[item] == 1) {
            numbers += (numbers.empty() ? u"" : u",") + plainNumber(item);
        }
    }
    return numbers;
}

/// The first marked item; none: -1.
std::int16_t firstMarked(const ItemTable& items) {
    for (std::int16_t item = 0; item <= items.itemCount; ++item) {
        if (items.itemInputMark[item] == 1) {
            return item;
        }
    }
    return -1;
}

} // namespace

ItemsToInput::ItemsToInput(EditScreen& edit)
    : edit_(edit), allBefore_(edit.zormod.input.allItemsInput), marksBefore_(edit.zormod.items.itemInputMark) {
    edit_.zormod.input.allItemsInput = 0;
    edit_.zormod.platform.screen.colourLabel(PanelField::Label11, LabelGround::plain);
}

int ItemsToInput::count() const {
    return edit_.zormod.items.itemCount + 1;
}

Text ItemsToInput::line(int item) const {
    return (isMarked(item) ? u"Y" : u" ") + padRight(plainNumber(item), numberColumns) + u" " + name(item);
}

Text ItemsToInput::spokenLine(int item) const {
    Text text = plainNumber(item) + u" " + name(item);
    return isMarked(item) ? text.append(commaPause).append(u".指定") : text;
}

void ItemsToInput::toggle(int item) {
    ZORMOD& zormod = edit_.zormod;
    if (item < 0) {
        zormod.platform.beeper.beep();
        return;
    }
    const bool marks = !isMarked(item);
    zormod.items.itemInputMark[item] = marks ? 1 : 0;
    sayThrottled(zormod, marks ? spokenLine(item) : spokenLine(item).append(commaPause).append(u".指定解除"));
}

void ItemsToInput::accept() {
    ZORMOD& zormod = edit_.zormod;
    const std::int16_t first = firstMarked(zormod.items);
    if (first < 0) {
        zormod.input.allItemsInput = 1;
        refreshCurrentCell(edit_);
        return;
    }
    if (isMarked(zormod.position.curItem)) {
        refreshCurrentCell(edit_);
    } else {
        commitTypedText(edit_);
        zormod.position.curItem = first;
        showCurrentCell(edit_);
    }
    // Behind the status update, which writes the numbers in another way.
    setPanelText(edit_, PanelField::Label11, markedNumbers(zormod.items));
}

void ItemsToInput::cancel() {
    edit_.zormod.input.allItemsInput = allBefore_;
    edit_.zormod.items.itemInputMark = marksBefore_;
}

TextView ItemsToInput::instruction() {
    return instructionText;
}

Text ItemsToInput::openingText() {
    return Text(instructionText)
        .append(periodPause)
        .append(u"記入項目の指定フォームが開かれました。特定の記入項目を指定します");
}

bool ItemsToInput::isMarked(int item) const {
    return edit_.zormod.items.itemInputMark[item] == 1;
}

Text ItemsToInput::name(int item) const {
    return trimmed(edit_.zormod.items.itemName[item]);
}

void takeAllIfNoneIsMarked(ZORMOD& zormod) {
    if (firstMarked(zormod.items) < 0) {
        zormod.input.allItemsInput = 1;
    }
}

void mnuItem(EditScreen& edit) {
    if (!beepsWithoutTable(edit.zormod)) {
        edit.zormod.platform.forms.open(u"Form5");
        giveInputBoxFocus(edit);
    }
}

void mnuWHOLE(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    edit.zormod.input.allItemsInput = 1;
    refreshCurrentCell(edit);
    // Behind the status update, which has a word of its own for all items.
    setPanelText(edit, PanelField::Label11, allItemsLabel(edit.zormod));
}

void toggleItemsToInput(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (!zormod.taskWord.empty()) {
        zormod.platform.beeper.beep();
    } else if (zormod.input.allItemsInput != 0) {
        mnuItem(edit);
    } else {
        mnuWHOLE(edit);
    }
}
