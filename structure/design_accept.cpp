#include "structure/design_accept.h"

#include "edit/items_to_input.h"
#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/letter_case.h"
#include "platform/screen.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/selection.h"
#include "sheet/swap_record.h"
#include "sheet/work_files.h"
#include "start/make_folder.h"
#include "start/table_opening.h"
#include "structure/design_checks.h"
#include "structure/design_reference.h"
#include "structure/design_rewrite.h"
#include "structure/design_typing.h"
#include "structure/record_rewrite.h"
#include "voice/announcement.h"
#include "voice/program_end.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

constexpr TextView extension = u".txt";

/// The table that the design is for.
struct Target {
    Text drive;
    Text name;
    Text path() const { return fullPath(drive, name); }
};

bool endsInExtension(const Text& name) {
    const std::size_t length = extension.size();
    return name.size() >= length && lowerCase(TextView(name).substr(name.size() - length)) == extension;
}

void completeName(TableDesign& design) {
    design.text3 = trimmed(design.text3);
    if (!endsInExtension(design.text3)) {
        design.text3 += extension;
    }
}

bool hasName(const Text& path) {
    return lowerCase(TextView(path).substr(lastPosition(path, u"\\"))) != extension;
}

Target targetOf(const TableDesign& design) {
    const std::size_t colon = design.text3.find(u':');
    if (colon == Text::npos) {
        return {lowerCase(TextView(design.references.path()).substr(0, 1)), design.text3};
    }
    return {design.text3.substr(0, colon), design.text3.substr(colon + 1)};
}

bool isOpenTable(const TableDesign& design, const Target& target) {
    const FileIdentity& file = design.before.file;
    return design.before.hadTable &&
           design.zormod.platform.files.isSameFile(fullPath(file.fileDrive, file.fileName),
                                                   fullPath(target.drive, target.name));
}

/// True if the design's two files are already those of other tables: its item file would take the place of somebody's
/// records, or its records would go into somebody's item file.
bool takesFilesOfOthers(const TableDesign& design, const Target& target) {
    Files& files = design.zormod.platform.files;
    const auto isThere = [&](TextView prefix) {
        return files.exists(besideTable(target.drive, target.name, prefix));
    };
    if (isThere(u"K") && isThere(u"KK")) {
        return true;
    }
    const std::size_t name = lastPosition(target.name, u"\\");
    Text owner = target.name;
    owner.erase(name, 1);
    return upperCase(target.name[name]) == u'K' && isThere({}) && !isThere(u"K") &&
           files.exists(fullPath(target.drive, owner));
}

/// True if records of the open table would be cut differently from now on.
bool cutsRecordsDifferently(TableDesign& design, const Target& target) {
    return design.mode == DesignMode::change && isOpenTable(design, target) &&
           cutsDiffer(design.before.items, design.rows) && recordCount(design.zormod) > 0;
}

Answer askForRewrite(ZORMOD& zormod) {
    return zormod.platform.dialogs.askYesNoCancel(
        u"<<<<<書き換えますか>>>>>　？",
        u"項目幅区切り又は左／右詰め項目に変更がありました、新設定に沿って既存データを書き換えますか。\r"
        u"書き換えるは　はい　　区切りのみ変更しデータはそのままの場合は いいえ を選択");
}

/// Writes the K file and opens the data file under the new name. False: told to the user, and nothing was opened.
bool writeAndOpen(TableDesign& design, const Target& target) {
    ZORMOD& zormod = design.zormod;
    closeAllFiles(zormod);
    // A rewrite of that table may have been killed between its two files.
    recoverTable(zormod, target.name, target.drive);
    zormod.file.fileDrive = target.drive;
    zormod.file.fileName = target.name;
    zormod.items = itemsOf(design.rows, design.before.items);
    zormod.file.tableMemo = trimmed(design.text2);
    writeItemFile(zormod, target.name, target.drive);
    if (zormod.writeFlag == u"er") {
        return false;
    }
    openDataFile(zormod);
    return true;
}

/// What was chosen among the old items: a range may end where there is no item any more, and Enter must find one to go to.
void leaveOldItems(ZORMOD& zormod) {
    giveUpSelection(zormod);
    takeAllIfNoneIsMarked(zormod);
}

/// The open table goes on under its changed design.
void goOnWithTable(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    if (!readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive).empty()) {
        throw RuntimeFailure{.kind = FailureKind::file, .isTold = true}; // the refusal has told the user
    }
    computeItemStart(zormod.items);
    leaveOldItems(zormod);
    const Position& before = design.before.position;
    Position& position = zormod.position;
    position.curItem = before.curItem > zormod.items.itemCount ? std::int16_t{0} : before.curItem;
    // Another name may have led to a shorter table.
    position.curRecord = std::min(before.curRecord, recordCount(zormod) + 1);
    zormod.taskWord.clear();
    refillWindow(zormod, position.curRecord);
    updateTitle(zormod);
    zormod.platform.screen.showCurrentCell();
}

void startTable(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    giveUpSelection(zormod);
    fillFirstWindow(zormod);
    updateTitle(zormod);
    zormod.platform.commands.run(showOpenedTableCommand);
    if (design.mode == DesignMode::csv) {
        zormod.results.answers[0] = 1.0;
    }
}

/// The old table as it is on the disk; its design as it was should its K file have become unreadable meanwhile.
void goBackToTable(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    restoreTable(design);
    if (!design.before.hadTable) {
        return;
    }
    finishInterrupted(zormod, zormod.file.fileName, zormod.file.fileDrive);
    if (!readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive).empty()) {
        restoreTable(design);
    }
    computeItemStart(zormod.items);
}

/// From the start screen there is nothing to go back to.
DesignOutcome askForEnd(ZORMOD& zormod) {
    if (zormod.platform.dialogs.askYesNoCancel(u"確認", u"ロミカを終了しますか？") != Answer::yes) {
        return DesignOutcome::stays;
    }
    farewellEnd(zormod);
}

} // namespace

DesignOutcome acceptDesign(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    if (!takeTypedCell(design)) {
        return DesignOutcome::toGrid;
    }
    completeName(design);
    if (!hasName(design.text3)) {
        zormod.platform.dialogs.showMessage(u"ﾌｧｲﾙ名がありません。ﾌｧｲﾙ名は？", u"ﾌｧｲﾙ名なし");
        return DesignOutcome::toFileName;
    }
    const Target target = targetOf(design);
    const Text fault = designFault(design);
    if (!fault.empty()) {
        zormod.platform.beeper.beep();
        zormod.platform.dialogs.showMessage(fault, u"表使用値の誤り");
        return DesignOutcome::toGrid;
    }
    const auto lock = zormod.platform.files.lockTable(target.path());
    if (!lock) {
        zormod.platform.dialogs.showMessage(u"このﾌｧｲﾙは別のロミカで使用中です", u"確認");
        return DesignOutcome::toFileName;
    }
    if (!isOpenTable(design, target) && takesFilesOfOthers(design, target)) {
        zormod.platform.dialogs.showMessage(
            u"このﾌｧｲﾙ名では他の表のﾌｧｲﾙが失われます。別のﾌｧｲﾙ名を入力してください", u"ﾌｧｲﾙ名入力エラー");
        return DesignOutcome::toFileName;
    }
    bool rewrites = false;
    if (cutsRecordsDifferently(design, target)) {
        const Answer answer = askForRewrite(zormod);
        if (answer == Answer::cancel) {
            return DesignOutcome::stays;
        }
        rewrites = answer == Answer::yes;
    }
    try {
        if (!(rewrites ? rewriteRecords(design) : writeAndOpen(design, target))) {
            goBackToTable(design);
            designRowsChanged(design);
            return DesignOutcome::toFileName;
        }
    } catch (const RuntimeFailure&) {
        goBackToTable(design);
        throw;
    }
    if (design.mode == DesignMode::change) {
        goOnWithTable(design);
    } else {
        startTable(design);
    }
    return DesignOutcome::closed;
}

DesignOutcome giveUpDesign(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    if (design.referencesShown) {
        design.referencesShown = false;
        talkS(zormod, referencesClosed);
        return DesignOutcome::stays;
    }
    if (!design.before.hadTable && design.mode == DesignMode::newTable) {
        return askForEnd(zormod);
    }
    waitSeconds(zormod, zormod.speech.inhibitSeconds);
    goBackToTable(design);
    zormod.taskWord.clear();
    if (design.before.hadTable) {
        zormod.platform.screen.showCurrentCell();
    }
    return DesignOutcome::closed;
}
