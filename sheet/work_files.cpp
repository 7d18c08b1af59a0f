#include "sheet/work_files.h"

#include "platform/dialogs.h"
#include "sheet/record_file.h"

namespace {

Text markPath(TextView drive) { return fullPath(drive, u".romika-work"); }

} // namespace

Text workFilePath(TextView drive) { return fullPath(drive, u"WORK.QQQ"); }
Text workItemFilePath(TextView drive) { return fullPath(drive, u"KWORK.QQQ"); }

Text besideTable(TextView drive, TextView fileName, TextView prefix) {
    Text name(fileName);
    name.insert(lastPosition(name, u"\\"), prefix);
    return fullPath(drive, name);
}

void tidy(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeFailure&) {
        // Such as a folder that has become read-only. The table opens all the same.
    }
}

void removeIfThere(ZORMOD& zormod, const Text& path) {
    if (zormod.platform.files.exists(path)) {
        zormod.platform.files.remove(path);
    }
}

void setAside(ZORMOD& zormod, const Text& path, const Text& unusedPath) {
    zormod.platform.dialogs.showMessage(
        u"前の作業が途中で終わりましたが、その後に表が変わっているため、続きを行いませんでした。表の内容を確認してください",
        u"確認");
    tidy([&] { zormod.platform.files.moveIntoPlace(path, unusedPath); });
}

std::unique_ptr<TableLock> claimWorkFiles(ZORMOD& zormod, TextView drive) {
    return zormod.platform.files.lockFolder(fullPath(drive, {}));
}

std::unique_ptr<TableLock> claimFolderOrTell(ZORMOD& zormod, const Text& folder) {
    auto claim = zormod.platform.files.lockFolder(folder);
    if (!claim) {
        zormod.platform.dialogs.showMessage(u"別のロミカが作業中です。しばらくしてからやり直してください", u"確認");
    }
    return claim;
}

void markWorkFiles(ZORMOD& zormod, TextView drive) { zormod.platform.files.replaceWhole(markPath(drive), {}); }

void clearWorkFiles(ZORMOD& zormod, TextView drive) {
    if (!zormod.platform.files.exists(markPath(drive))) {
        return;
    }
    removeIfThere(zormod, workFilePath(drive));
    removeIfThere(zormod, workItemFilePath(drive));
    // Last, so that a kill in between leaves nothing that nobody knows of.
    zormod.platform.files.remove(markPath(drive));
}
