#include "edit/jumps.h"

#include "edit/movement.h"
#include "edit/number_prompt.h"
#include "edit/range_state.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/number_text.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <algorithm>
#include <optional>

namespace {

/// The number asked for, counted from `here` on if the answer begins with a sign; nothing if the user gave up.
std::optional<double> askNumber(ZORMOD& zormod, const Text& prompt, const Text& title, double here) {
    const Text answer = askTrimmed(zormod, prompt, title, {});
    if (answer.empty()) {
        return {};
    }
    const bool isRelative = answer.front() == u'+' || answer.front() == u'-';
    return (isRelative ? here : 0) + Val(answer);
}

void leaveRow(EditScreen& edit) {
    commitTypedText(edit);
    commitRecord(edit.zormod);
}

/// The focus in the box that takes the keys: that of the pointer's form while a target is being chosen.
void giveKeyBoxFocus(EditScreen& edit) {
    if (isTargeting(edit.zormod.taskWord)) {
        edit.zormod.platform.commands.run(focusPointerBoxCommand);
    } else {
        giveInputBoxFocus(edit);
    }
}

void arrive(EditScreen& edit) {
    if (isTargeting(edit.zormod.taskWord)) {
        showCurrentCell(edit);
        edit.zormod.platform.commands.run(pointerJumpedCommand);
    } else {
        showCurrentCellAtRest(edit);
    }
}

/// A jump between records ends the ID numbering: the counter belongs to the row that was left.
void standOnRecord(EditScreen& edit, std::int32_t record) {
    ZORMOD& zormod = edit.zormod;
    zormod.input.idAutoOn = 0;
    zormod.position.curRecord = record;
    refillWindow(zormod, record);
    arrive(edit);
}

void standOnItem(EditScreen& edit, std::int16_t item) {
    edit.zormod.position.curItem = item;
    arrive(edit);
}

/// A jump ends a task, but not the choosing of a range or of a target: those go on behind it.
void endTask(ZORMOD& zormod) {
    if (!isBeingChosen(zormod.taskWord)) {
        zormod.taskWord.clear();
    }
}

} // namespace

std::int32_t lastRecord(ZORMOD& zormod) {
    return std::max(1, recordCount(zormod));
}

std::int16_t firstItem(const ZORMOD& zormod) {
    return std::min<std::int16_t>(1, zormod.items.itemCount);
}

std::optional<std::int32_t> askForRecord(ZORMOD& zormod) {
    const auto asked = askNumber(
        zormod, u"第なん記録に飛びますか？（なお、＋－付きで数値を指定すると、今の記録からの相対指定になります",
        u"指定記録へ移動", zormod.position.curRecord);
    if (!asked) {
        return {};
    }
    // Compared before it is narrowed: a number of any size has its place.
    return roundTo32(std::clamp<double>(*asked, 0, INT32_MAX));
}

std::optional<std::int16_t> askForItem(ZORMOD& zormod) {
    const auto asked = askNumber(zormod,
                                 u"どの項目に飛びますか？項目番号を!"
                                 u"なお、ﾌﾟﾗｽまたはﾏｲﾅｽ符号付きで数値を指定すると、今の項目からの相対指定になります",
                                 u"指定項目へ移動", zormod.position.curItem);
    if (!asked) {
        return {};
    }
    return roundTo16(std::clamp<double>(*asked, 0, zormod.items.itemCount));
}

void mnuJUMP(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    const auto target = askForRecord(zormod);
    endTask(zormod);
    if (!target) {
        giveKeyBoxFocus(edit);
        return;
    }
    if (*target <= 0) {
        zormod.platform.beeper.beep();
        giveKeyBoxFocus(edit);
        return;
    }
    leaveRow(edit);
    standOnRecord(edit, std::min(*target, lastRecord(zormod)));
}

void mnuHJ(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    const auto target = askForItem(zormod);
    endTask(zormod);
    if (!target) {
        giveKeyBoxFocus(edit);
        return;
    }
    goToItem(edit, *target);
}

void mnuEXTD(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    leaveRow(edit);
    standOnRecord(edit, lastRecord(edit.zormod));
}

void mnuEXTTOP(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    goToRecord(edit, 1);
}

void mnuEXTR(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    if (commitTypedText(edit)) {
        commitRecord(edit.zormod);
    }
    standOnItem(edit, edit.zormod.items.itemCount);
}

void mnuEXTL(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    goToItem(edit, firstItem(edit.zormod));
}

void mnuHOME(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    leaveRow(edit);
    edit.zormod.position.curItem = firstItem(edit.zormod);
    standOnRecord(edit, 1);
}

void mnuCTRLP(EditScreen& edit) {
    if (beepsWithoutTable(edit.zormod)) {
        return;
    }
    leaveRow(edit);
    edit.zormod.position.curItem = firstItem(edit.zormod);
    nextRecord(edit);
}

void pageUp(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    leaveRow(edit);
    const std::int32_t target = zormod.position.curRecord - zormod.position.windowRows;
    if (target < 1) {
        zormod.platform.beeper.beep();
    }
    standOnRecord(edit, std::max(target, 1));
}

void pageDown(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    leaveRow(edit);
    const std::int32_t target = zormod.position.curRecord + zormod.position.windowRows;
    const std::int32_t last = lastRecord(zormod);
    if (target > last) {
        zormod.platform.beeper.beep();
    }
    standOnRecord(edit, std::min(target, last));
}

void stepItemForward(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    const std::int16_t last = zormod.items.itemCount;
    if (zormod.position.curItem >= last) {
        zormod.platform.beeper.beep();
    }
    standOnItem(edit, std::min<std::int16_t>(zormod.position.curItem + 1, last));
}

void stepItemBack(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (zormod.position.curItem <= 0) {
        zormod.platform.beeper.beep();
    }
    standOnItem(edit, std::max<std::int16_t>(zormod.position.curItem - 1, 0));
}

void goToRecord(EditScreen& edit, std::int32_t record) {
    leaveRow(edit);
    standOnRecord(edit, record);
}

void goToItem(EditScreen& edit, std::int16_t item) {
    commitTypedText(edit);
    standOnItem(edit, item);
}
