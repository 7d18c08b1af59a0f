#include "structure/design_typing.h"

#include "platform/beeper.h"
#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/letter_case.h"
#include "platform/number_text.h"
#include "structure/design_checks.h"
#include "transform/width_conversion.h"
#include "voice/announcement.h"
#include "voice/speech_channel.h"

#include <optional>

namespace {

constexpr std::size_t longestNameBytes = 254;
constexpr double widestItem = 254;

DesignRow& rowInHand(TableDesign& design) {
    return design.rows[static_cast<std::size_t>(design.row)];
}

/// Tells why a text can't stand in its cell, then what to do.
std::nullopt_t refuse(TableDesign& design, TextView text, TextView speech) {
    design.zormod.platform.dialogs.showMessage(Text(text), {});
    sayText(design.zormod, Text(speech));
    return std::nullopt;
}

std::optional<Text> checkedWidth(TableDesign& design, const Text& typed) {
    const double width = typedNumber(typed);
    if (width > widestItem) {
        return refuse(design, u"項目幅が長すぎます", u"再入力、項目幅が長い。");
    }
    if (width < 1) {
        return refuse(design, u"項目幅は１以上を指定して下さい", u"再入力、項目幅は１以上を。");
    }
    return plainNumber(roundTo16(width));
}

/// The text as it goes into its cell; none if it was refused.
std::optional<Text> checkedCell(TableDesign& design, const Text& typed) {
    switch (design.column) {
    case DesignColumn::align: {
        const Text align = trimmed(upperCase(typed));
        if (align != u"L" && align != u"R") {
            return refuse(design, u"Ｌ(左詰め指定)かＲ(右詰め指定）のみを入力して下さい", u"再入力、ＬかＲのみ記入。");
        }
        return align;
    }
    case DesignColumn::width:
        return checkedWidth(design, typed);
    default:
        if (design.zormod.platform.codePage.byteLength(typed) > longestNameBytes) {
            return refuse(design, u"項目名は254文字以内に押さえて下さい", u"再入力、項目名は254文字以内。");
        }
        return typed;
    }
}

/// Checks the text of `itemin` and puts it into its cell.
bool takeCell(TableDesign& design) {
    const std::optional<Text> text = checkedCell(design, design.itemin);
    if (text) {
        cellText(rowInHand(design), design.column) = *text;
        design.itemin = *text;
    }
    return text.has_value();
}

bool moveTo(TableDesign& design, int row, DesignColumn column) {
    if (row < 0 || row > lastDesignItem(design)) {
        design.zormod.platform.beeper.beep();
        return false;
    }
    standOnDesignCell(design, row, column);
    sayCellPrompt(design);
    return true;
}

/// One column on; behind the last one the next row, before the first one the row before.
void step(TableDesign& design, int by) {
    const int column = static_cast<int>(design.column) + by;
    if (column < static_cast<int>(DesignColumn::name)) {
        moveTo(design, design.row - 1, DesignColumn::width);
    } else if (column > static_cast<int>(DesignColumn::width)) {
        moveTo(design, design.row + 1, DesignColumn::name);
    } else {
        moveTo(design, design.row, static_cast<DesignColumn>(column));
    }
}

void tellEnd(TableDesign& design) {
    design.toldEnd = true;
    design.zormod.platform.dialogs.showMessage(
        u"設定された項目数の記入を終えました。項目数を増やす場合は↓を押して下さい。", u"項目数の増加");
}

bool mayGrow(TableDesign& design) {
    if (lastDesignItem(design) < highestItem) {
        return true;
    }
    tellTooManyItems(design.zormod);
    return false;
}

void insertRow(TableDesign& design, int at, const DesignRow& row) {
    design.rows.insert(design.rows.begin() + at, row);
    designRowsChanged(design);
}

void enterKey(TableDesign& design) {
    if (!takeCell(design)) {
        return;
    }
    const bool isLast = design.row == lastDesignItem(design) && design.column == DesignColumn::width;
    if (isLast) {
        tellEnd(design);
    } else {
        step(design, 1);
    }
}

void downKey(TableDesign& design, bool copies) {
    if (!takeTypedCell(design)) {
        return;
    }
    if (design.row < lastDesignItem(design)) {
        moveTo(design, design.row + 1, design.column);
    } else if (!copies && !design.toldEnd) {
        tellEnd(design);
    } else if (mayGrow(design)) {
        insertRow(design, design.row + 1, copies ? DesignRow(rowInHand(design)) : DesignRow());
        moveTo(design, design.row + 1, copies ? design.column : DesignColumn::name);
    }
}

void sayItem(TableDesign& design, int item, TextView sentence) {
    talkS(design.zormod, plainNumber(item) + Text(sentence));
}

void insertItem(TableDesign& design) {
    if (!takeTypedCell(design) || !mayGrow(design)) {
        return;
    }
    insertRow(design, design.row, {});
    standOnDesignCell(design, design.row, DesignColumn::name);
    sayItem(design, design.row, u"項目に項目が挿入されました。項目名などを設定してください。");
}

void deleteItem(TableDesign& design) {
    if (lastDesignItem(design) == 0) {
        design.zormod.platform.beeper.beep();
        return;
    }
    const int item = design.row;
    design.rows.erase(design.rows.begin() + item);
    designRowsChanged(design);
    standOnDesignCell(design, design.row, design.column);
    sayItem(design, item, u"項目が削除され、以後の項目が前詰めされました。");
}

/// A box that is empty or wholly selected has no place for the caret to go; at its edge an arrow leaves it.
bool leavesBox(const BoxView& box, bool towardsEnd) {
    const int length = static_cast<int>(box.text.size());
    if (box.selectionLength > 0) {
        return box.selectionLength == length;
    }
    return box.caret == (towardsEnd ? length : 0);
}

void sideKey(TableDesign& design, int by) {
    if (takeTypedCell(design)) {
        step(design, by);
    }
}

} // namespace

Text cellPrompt(const TableDesign& design) {
    static constexpr TextView nameSentence = u"の項目名を記入してください";
    static constexpr TextView alignSentence = u"の配置を示すRまたはＬを入力してください";
    static constexpr TextView widthSentence = u"の項目幅を入力してください";
    TextView sentence = nameSentence;
    if (design.column != DesignColumn::name) {
        sentence = design.column == DesignColumn::align ? alignSentence : widthSentence;
    }
    return u"項目" + plainNumber(design.row) + Text(sentence);
}

void sayCellPrompt(const TableDesign& design) {
    talkS(design.zormod, cellPrompt(design));
}

Text cellLabel(const TableDesign& design) {
    return plainNumber(design.row) + u"項目" + Text(columnHeader(design.column));
}

KeyOutcome itemInKeyDown(TableDesign& design, const KeyStroke& stroke, const BoxView& box) {
    if (stroke == plainKey(Key::enter)) {
        enterKey(design);
    } else if (stroke == plainKey(Key::down) || stroke == shiftKey(Key::down)) {
        downKey(design, stroke.shift);
    } else if (stroke == plainKey(Key::up)) {
        if (takeTypedCell(design)) {
            moveTo(design, design.row - 1, design.column);
        }
    } else if (stroke == plainKey(Key::left) && leavesBox(box, false)) {
        sideKey(design, -1);
    } else if (stroke == plainKey(Key::right) && leavesBox(box, true)) {
        sideKey(design, 1);
    } else if (stroke == plainKey(Key::insert)) {
        design.overwrites = !design.overwrites;
        talkS(design.zormod, design.overwrites ? u"上書オン" : u"上書オフ");
    } else if (stroke == ctrlShiftKey(Key::insert)) {
        insertItem(design);
    } else if (stroke == ctrlShiftKey(Key::del)) {
        deleteItem(design);
    } else {
        return KeyOutcome::goesOn;
    }
    return KeyOutcome::taken;
}

bool pickDesignCell(TableDesign& design, int row, DesignColumn column) {
    return takeTypedCell(design) && moveTo(design, row, column);
}

bool takeTypedCell(TableDesign& design) {
    return design.itemin == cellText(rowInHand(design), design.column) || takeCell(design);
}
