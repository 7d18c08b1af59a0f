#include "start/table_opening.h"

#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/forms.h"
#include "platform/screen.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/selection.h"
#include "sheet/swap_record.h"

OldTable::OldTable(ZORMOD& zormod)
    : zormod_(zormod), fileName_(zormod.file.fileName), fileDrive_(zormod.file.fileDrive) {}

void OldTable::putBack() {
    FileIdentity& file = zormod_.file;
    file.fileName = fileName_;
    file.fileDrive = fileDrive_;
    if (fileName_.empty() || !readItemFile(zormod_, fileName_, fileDrive_).empty()) {
        forgetTable(zormod_);
        return;
    }
    if (!hasTable(zormod_)) {
        openDataFile(zormod_);
    }
    computeItemStart(zormod_.items);
}

void forgetTable(ZORMOD& zormod) {
    closeAllFiles(zormod);
    zormod.files.tableLock.reset();
    zormod.file.fileName.clear();
    zormod.file.tableMemo.clear();
    zormod.items = {};
}

std::unique_ptr<TableLock> claimTable(ZORMOD& zormod, const Text& path) {
    auto claim = zormod.platform.files.lockTable(path);
    if (!claim) {
        zormod.platform.dialogs.showMessage(u"このﾌｧｲﾙは別のロミカで使用中です", u"確認");
    }
    return claim;
}

bool openNamedTable(ZORMOD& zormod) {
    const FileIdentity& file = zormod.file;
    // Held until the data file is open, which claims it for good; the old table's claim lasts until then.
    const auto claim = claimTable(zormod, fullPath(file.fileDrive, file.fileName));
    if (!claim) {
        return false;
    }
    recoverTable(zormod, file.fileName, file.fileDrive);
    if (!readItemFile(zormod, file.fileName, file.fileDrive).empty()) {
        return false;
    }
    closeAllFiles(zormod);
    openDataFile(zormod);
    return true;
}

bool openInsteadOfOld(ZORMOD& zormod, const Text& fileName, const Text& fileDrive) {
    OldTable old(zormod);
    zormod.file.fileName = fileName;
    zormod.file.fileDrive = fileDrive;
    try {
        if (openNamedTable(zormod)) {
            giveUpSelection(zormod);
            fillFirstWindow(zormod);
            updateTitle(zormod);
            return true;
        }
    } catch (const RuntimeFailure&) {
        closeAllFiles(zormod);
        old.putBack();
        throw;
    }
    old.putBack();
    return false;
}

void showTableOnScreen(ZORMOD& zormod) {
    const bool isThere = zormod.platform.forms.isLoaded(u"Form1");
    if (!isThere) {
        zormod.platform.forms.open(u"Form1");
    }
    zormod.platform.commands.run(showOpenedTableCommand);
    if (isThere) {
        // The edit screen says its opening text when it comes up; when it is there already, this is all that is heard.
        zormod.platform.commands.run(u"backToInputBox");
    }
}
