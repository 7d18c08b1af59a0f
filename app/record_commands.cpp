#include "app/record_commands.h"

#include "app/command_frame.h"
#include "edit/input_keys.h"
#include "edit/movement.h"
#include "edit/range_keys.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/dialogs.h"
#include "platform/number_text.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "structure/cell_shift.h"
#include "structure/range_questions.h"
#include "structure/record_operations.h"
#include "transform/width_conversion.h"
#include "voice/announcement.h"
#include "voice/speech_channel.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr TextView insertTask = u"insertrecord";
constexpr TextView deleteTask = u"killrecord";
constexpr std::int16_t recordKind = 2;

/// A number of records as the user types it, cut at `most`; 0 if none is wanted.
std::int32_t askCount(ZORMOD& zormod, const Text& prompt, const Text& title, std::int32_t most) {
    // Compared before it is narrowed: a number of any size has its meaning.
    const double count = typedNumber(zormod.platform.dialogs.askText(prompt, title, u"1"));
    return roundTo32(std::clamp<double>(count, 0, most));
}

BulkEnd insertAndSay(EditScreen& edit, std::int32_t count) {
    const BulkEnd end = insertRecords(edit.zormod, count);
    if (end == BulkEnd::done) {
        // The number that has just been said is what the user is to hear, not the name of the box.
        edit.readingState = ReadingState::cellSaid;
    }
    return end;
}

void mnuINSREC1(EditScreen& edit) {
    beginTask(edit, insertTask);
    insertAndSay(edit, 1);
    endTask(edit);
}

void mnuINSRECM(EditScreen& edit) {
    beginTask(edit, insertTask);
    const std::int32_t count =
        askCount(edit.zormod, u"なん記録挿入しますか？", u"指定数の記録の挿入", INT32_MAX);
    if (count > 0) {
        insertAndSay(edit, count);
    }
    endTask(edit);
}

/// As many records as the fixed range holds, in front of it.
void insertRangeRecords(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    beginTask(edit, insertTask);
    const Selection range = zormod.selection;
    const std::int32_t here = zormod.position.curRecord;
    zormod.position.curRecord = std::min(range.selRecordFrom, range.selRecordTo);
    if (insertAndSay(edit, std::abs(range.selRecordTo - range.selRecordFrom) + 1) != BulkEnd::done) {
        zormod.position.curRecord = here;
        refillWindow(zormod, here); // what was stopped shows the place where the records would have come
    }
    endTask(edit);
}

void mnuKILLREC1(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    beginTask(edit, deleteTask);
    const std::int32_t first = zormod.position.curRecord;
    const std::int32_t left = recordCount(zormod) - first + 1;
    if (left <= 0) {
        zormod.platform.beeper.beep();
    } else if (const std::int32_t count =
                   askCount(zormod, u"今の記録から、なん記録排除しますか？", u"指定数の記録の排除", left);
               count > 0) {
        deleteRecords(zormod, first, first + count - 1);
    }
    endTask(edit);
}

void menuRKILL(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    const Selection range = zormod.selection;
    if (range.selectionKind != recordKind) {
        tellMissingRange(zormod, MissingRange::records);
        giveInputBoxFocus(edit);
        return;
    }
    beginTask(edit, deleteTask);
    if (isAnsweredYes(zormod, deleteRecordsQuestion(range.selRecordFrom, range.selRecordTo))) {
        deleteRecords(zormod, range.selRecordFrom, range.selRecordTo);
    }
    endTask(edit);
}

void shiftCells(EditScreen& edit, void (*shift)(ZORMOD&)) {
    shift(edit.zormod);
    showCurrentCell(edit);
    clearInputBox(edit);
}

} // namespace

void bindRecordCommands(CommandTable& commands, EditScreen& edit) {
    const auto bind = [&](TextView name, void (*routine)(EditScreen&)) { bindWithTable(commands, edit, name, routine); };
    bind(u"mnuINSREC1", mnuINSREC1);
    bind(u"mnuINSRECM", mnuINSRECM);
    bind(insertRangeRecordsCommand, insertRangeRecords);
    bind(u"mnuKILLREC1", mnuKILLREC1);
    bind(u"menuRKILL", menuRKILL);
    bind(shiftCellsRightCommand, [](EditScreen& screen) {
        shiftCells(screen, shiftCellsRight);
        sayText(screen.zormod, u"ﾃﾞｰﾀｶﾞｲﾁｺｳﾓｸﾐｷﾞｼﾌﾄｼﾏｼﾀ"); // whatever was said just before
    });
    bind(shiftCellsLeftCommand, [](EditScreen& screen) {
        shiftCells(screen, shiftCellsLeft);
        talkS(screen.zormod, u"ﾃﾞｰﾀｶﾞｲﾁｺｳﾓｸﾋﾀﾞﾘｼﾌﾄｼﾏｼﾀ");
    });
}
