#include "edit/status_update.h"

#include "edit/box_labels.h"
#include "platform/commands.h"
#include "platform/forms.h"
#include "platform/number_text.h"
#include "sheet/cell.h"
#include "voice/announcement.h"
#include "voice/speech_channel.h"

#include <algorithm>
#include <array>

namespace {

template <typename Edit> auto watchedBox(Edit& edit, PanelField field) -> decltype(&edit.txtREC) {
    switch (field) {
    case PanelField::txtREC:
        return &edit.txtREC;
    case PanelField::txtItemnum:
        return &edit.txtItemnum;
    case PanelField::txtinputbox:
        return &edit.txtinputbox;
    default:
        return nullptr;
    }
}

template <typename Edit> auto plainField(Edit& edit, PanelField field) -> decltype(&edit.txtWIDTH) {
    switch (field) {
    case PanelField::txtWIDTH:
        return &edit.txtWIDTH;
    case PanelField::txtLR:
        return &edit.txtLR;
    case PanelField::Text1:
        return &edit.Text1;
    case PanelField::RichTextBox1:
        return &edit.RichTextBox1;
    case PanelField::RichTextBox2:
        return &edit.RichTextBox2;
    case PanelField::Label8:
        return &edit.Label8;
    case PanelField::Label11:
        return &edit.Label11;
    case PanelField::Label13:
        return &edit.Label13;
    default:
        return nullptr;
    }
}

/// The reading of a move, or of a number being typed into the box.
void cellMoveReading(EditScreen& edit, MovedBox moved) {
    ZORMOD& zormod = edit.zormod;
    const bool isRecord = moved == MovedBox::record;
    if (isRecord ? edit.typingInRecordBox : edit.typingInItemBox) {
        const PanelField field = isRecord ? PanelField::txtREC : PanelField::txtItemnum;
        zormod.speech.lastSpokenTime = 0;
        talkS(zormod, {.text = panelText(edit, field)}, sideBoxLabel(field));
        return;
    }
    if (!hasTable(zormod) || !throttlePasses(zormod)) {
        return;
    }
    edit.readingState = ReadingState::cellSaid;
    sayText(zormod, cellMoveText(zormod, moved, panelReadings(edit)));
    if (!isRecord) {
        edit.readingState = ReadingState::none;
    }
}

Text cellInWindow(const ZORMOD& zormod, std::int32_t record, std::int16_t item) {
    const std::int64_t slot = static_cast<std::int64_t>(record) - zormod.position.windowFirst + 2;
    return cellOf(zormod, zormod.window.recordWindow[slot], item);
}

/// The pinned item of the record goes to its form. A table that ends before the item has nothing to show: unpinned.
void showPinnedItem(EditScreen& edit, std::int32_t record) {
    ZORMOD& zormod = edit.zormod;
    std::int16_t& item = zormod.input.pinnedItem;
    if (item > zormod.items.itemCount) {
        item = -1;
        zormod.platform.forms.close(u"frmSPITEM");
    }
    if (item >= 0) {
        edit.pinnedCaption.set(pinnedTitle(zormod));
        edit.pinnedCell.set(trimmed(cellInWindow(zormod, record, item)));
    }
}

Text idText(const ZORMOD& zormod, std::int32_t record) {
    Text id = cellInWindow(zormod, record, 0);
    return zormod.input.idAutoOn != 0 ? Text(idAutoMark) + id : id;
}

Text itemsToInput(const ZORMOD& zormod) {
    if (zormod.input.allItemsInput != 0) {
        return u"全項目";
    }
    Text numbers;
    for (std::int16_t item = 0; item <= zormod.items.itemCount; ++item) {
        if (zormod.items.itemInputMark[item] == 1) {
            numbers += plainNumber(item);
            numbers += u',';
        }
    }
    return numbers;
}

void showWithBoxText(EditScreen& edit, const Text& boxText) {
    ZORMOD& zormod = edit.zormod;
    if (hasTable(zormod)) {
        updateStatus(edit, zormod.position.curRecord, zormod.position.curItem, boxText);
        if (boxText.empty()) {
            showCellInEcho(edit);
        }
        zormod.platform.screen.redrawView();
    }
}

} // namespace

void connectPositionBoxes(EditScreen& edit) {
    edit.txtREC.onChange([&edit] { cellMoveReading(edit, MovedBox::record); });
    edit.txtItemnum.onChange([&edit] { cellMoveReading(edit, MovedBox::item); });
}

void updateStatus(EditScreen& edit, std::int32_t record, std::int16_t item, const Text& boxText) {
    ZORMOD& zormod = edit.zormod;
    const ItemTable& items = zormod.items;
    showPinnedItem(edit, record);
    setBoxText(edit, PanelField::txtREC, Str(record));
    setPanelText(edit, PanelField::Text1, plainNumber(items.itemCount));
    setPanelText(edit, PanelField::Label13, idText(zormod, record));
    setBoxText(edit, PanelField::txtItemnum, plainNumber(item));
    setPanelText(edit, PanelField::RichTextBox1, items.itemName[item]);
    setPanelText(edit, PanelField::txtWIDTH, plainNumber(items.itemWidth[item]));
    setPanelText(edit, PanelField::txtLR, items.itemAlign[item]);
    {
        const SilentScope silent(zormod);
        setBoxText(edit, PanelField::txtinputbox, boxText);
    }
    zormod.platform.screen.setInputBoxWidth(items.itemWidth[item]);
    setPanelText(edit, PanelField::RichTextBox2, edit.typedMemo.value_or(zormod.file.tableMemo));
    setPanelText(edit, PanelField::Label11, itemsToInput(zormod));
}

void showCurrentCell(EditScreen& edit) {
    showWithBoxText(edit, {});
}

void refreshCurrentCell(EditScreen& edit) {
    showWithBoxText(edit, Text(edit.txtinputbox.text()));
}

void showCurrentCellAtRest(EditScreen& edit) {
    showCurrentCell(edit);
    clearInputBox(edit);
    giveInputBoxFocus(edit);
}

void showOpenedTable(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    const SilentScope silent(zormod);
    edit.readingState = ReadingState::none;
    edit.typedMemo.reset(); // of another table
    showCurrentCellAtRest(edit);
    // Shown once more even if the last table had the same, or its Ctrl+Z would bring back what was typed there.
    zormod.platform.screen.showField(PanelField::RichTextBox2, zormod.file.tableMemo);
    setPanelText(edit, PanelField::Label11, allItemsLabel(zormod));
    const std::int16_t limit = zormod.input.inputLimit;
    setPanelText(edit, PanelField::Label8, limit != 0 ? u"制限字数:" + plainNumber(limit) : u"字数制限:項目幅");
}

Text allItemsLabel(const ZORMOD& zormod) {
    return u"全項目(0～" + plainNumber(zormod.items.itemCount) + u")";
}

const Text& panelText(const EditScreen& edit, PanelField field) {
    const WatchedText* const box = watchedBox(edit, field);
    return box != nullptr ? box->text() : *plainField(edit, field);
}

void setPanelText(EditScreen& edit, PanelField field, const Text& text) {
    Text* const held = plainField(edit, field);
    if (held != nullptr && *held != text) {
        *held = text;
        edit.zormod.platform.screen.showField(field, text);
    }
}

void setBoxText(EditScreen& edit, PanelField field, TextView text) {
    WatchedText* const box = watchedBox(edit, field);
    // An empty box is emptied once more, or its Ctrl+Z would bring back what was typed at another cell.
    if (box != nullptr && (box->set(text) || text.empty())) {
        edit.zormod.platform.screen.showField(field, box->text());
    }
}

void clearInputBox(EditScreen& edit) {
    const SilentScope silent(edit.zormod);
    setBoxText(edit, PanelField::txtinputbox, {});
    showCellInEcho(edit);
}

void showCellInEcho(const EditScreen& edit) {
    if (hasTable(edit.zormod)) {
        edit.zormod.platform.screen.showCellInEcho();
    }
}

void giveInputBoxFocus(EditScreen& edit) {
    edit.zormod.platform.screen.focusField(PanelField::txtinputbox);
    inputBoxGotFocus(edit);
}

void inputBoxGotFocus(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    zormod.platform.screen.setInputBoxWidth(zormod.items.itemWidth[zormod.position.curItem]);
    edit.typingInRecordBox = false;
    edit.typingInItemBox = false;
    edit.previousInputText = edit.txtinputbox.text();
    if (zormod.taskWord == u"HTYU") {
        zormod.platform.commands.run(focusRangeBoxCommand);
    } else if (zormod.taskWord == u"copy" || zormod.taskWord == u"move") {
        zormod.platform.commands.run(focusPointerBoxCommand);
    } else if (edit.readingState == ReadingState::cellSaid) {
        edit.readingState = ReadingState::focusPassed;
    } else {
        talkS(zormod, {.text = edit.txtinputbox.text()}, sideBoxLabel(PanelField::txtinputbox));
    }
}

PanelReadings panelReadings(const EditScreen& edit) {
    return {.txtREC = edit.txtREC.text(),
            .txtItemnum = edit.txtItemnum.text(),
            .txtLR = edit.txtLR,
            .Label8 = edit.Label8,
            .Label11 = edit.Label11,
            .Label13 = edit.Label13,
            .memo = edit.RichTextBox2};
}

bool viewComesForward(const Text& taskWord) {
    static constexpr std::array<TextView, 8> stays = {u"chfln", u"moveitem", u"move",         u"moverecord",
                                                      u"copy",  u"srch",     u"narabekaef", u"HTYU"};
    return std::find(stays.begin(), stays.end(), taskWord) == stays.end();
}
