#include "start/file_choice.h"

#include "platform/beeper.h"
#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/flag_scope.h"
#include "platform/forms.h"
#include "platform/letter_case.h"
#include "platform/screen.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "start/make_folder.h"
#include "start/table_opening.h"
#include "voice/announcement.h"
#include "voice/program_end.h"

namespace {

constexpr TextView tablePattern = u"K*.TXT";
constexpr TextView allPattern = u"*.*";

/// The folder of the open table, or the program's folder.
Text startFolder(const ZORMOD& zormod) {
    const FileIdentity& file = zormod.file;
    if (file.fileName.empty()) {
        return file.programFolder;
    }
    return upperCase(file.fileDrive) + u':' + file.fileName.substr(0, lastPosition(file.fileName, u"\\"));
}

} // namespace

FileChoice::FileChoice(ZORMOD& zormod)
    : zormod_(zormod), openedWith_(zormod.taskWord), word_(openedWith_),
      folders_(zormod, listsTables() ? tablePattern : allPattern) {
    folders_.start(startFolder(zormod));
}

Text FileChoice::caption() const {
    if (word_ == deleteFileWord) {
        return u"削除ﾌｧｲﾙ指定";
    }
    return listsTables() ? u"ﾛﾐｶﾌｧｲﾙ指定" : u"ﾛﾐｶﾌｧｲﾙへの変換";
}

Text FileChoice::carryOutCaption() const {
    if (openedWith_ == deleteFileWord) {
        return u"削除(CR)";
    }
    return openedWith_ == openFileWord ? u"読込(CR)" : u"読み込み(CR)";
}

Text FileChoice::hint() const {
    return listsTables() ? u"上記ﾌｧｲﾙ名はK+ﾌｧｲﾙで表示されています" : u"ロミカファイルでないファイルの読み込みへ";
}

Text FileChoice::description() const {
    Text text = u"タブキーで　ドライブ、フォルダ、ファイルのリストと　ボタンを　移動します。"
                u"上下矢印キーで　選んで、リターンキーを　叩いてください。";
    if (word_ == deleteFileWord) {
        text += u"選んだファイルは、確認なしに　削除されます。";
    }
    text += u"ファイルのリストで　スペースキーを　叩くと、その　項目一覧が　表示されます。";
    text += endsProgram() ? u"エスケープキーで　ロミカを終了します。" : u"エスケープキーで　中止します。";
    return text;
}

void FileChoice::carryOut() {
    if (!hasChoice()) {
        return;
    }
    runAlone([this] {
        if (!listsTables()) {
            zormod_.platform.commands.run(convertChosenFileCommand);
        } else if (word_ == deleteFileWord) {
            deleteChosen();
        } else {
            openChosen();
        }
    });
}

void FileChoice::runAlone(const std::function<void()>& work) {
    if (isAtWork_) {
        zormod_.platform.beeper.beep();
        return;
    }
    const FlagScope atWork(isAtWork_);
    work();
}

void FileChoice::dispItem() {
    if (!hasChoice()) {
        zormod_.platform.beeper.beep();
        return;
    }
    runAlone([this] { showItems(); });
}

void FileChoice::showItems() {
    const Name chosen = chosenName();
    OldTable old(zormod_);
    zormod_.file.fileName = chosen.fileName;
    zormod_.file.fileDrive = chosen.fileDrive;
    try {
        if (readItemFile(zormod_, chosen.fileName, chosen.fileDrive).empty()) {
            zormod_.platform.forms.open(u"frmItemList");
        } else {
            zormod_.platform.beeper.beep();
        }
    } catch (const RuntimeFailure&) {
        old.putBack();
        throw;
    }
    old.putBack();
    folders_.refresh();
}

void FileChoice::readCsv() {
    zormod_.platform.commands.run(readCsvCommand);
}

void FileChoice::giveUp() {
    runAlone([this] {
        if (endsProgram()) {
            farewellEnd(zormod_);
        }
        const bool mayHaveChangedFiles = word_ == deleteFileWord || word_ == convertFileWord;
        close();
        if (mayHaveChangedFiles && hasTable(zormod_)) {
            zormod_.platform.screen.showCurrentCell();
        }
    });
}

void FileChoice::makeFolderHere() {
    if (makeFolder(zormod_, folders_.path())) {
        folders_.refresh();
    }
}

void FileChoice::toggleAllFiles() {
    setWord(listsTables() ? convertFileWord : TextView(openedWith_));
    talkS(zormod_, hint());
}

bool FileChoice::endsProgram() const {
    return zormod_.file.fileName.empty() && (word_.empty() || word_ == convertFileWord);
}

/// What the selected line means: the list shows item definition files, and their first letter isn't the table's.
FileChoice::Name FileChoice::chosenName() const {
    const Text name = folders_.selectedName();
    const Text path = pathInFolder(folders_.path(), TextView(name).substr(listsTables() ? 1 : 0));
    return {path.substr(2), lowerCase(TextView(path).substr(0, 1))};
}

void FileChoice::setWord(TextView word) {
    word_ = Text(word);
    zormod_.taskWord = word_;
    folders_.setPattern(listsTables() ? tablePattern : allPattern);
}

void FileChoice::openChosen() {
    const Name chosen = chosenName();
    if (!openInsteadOfOld(zormod_, chosen.fileName, chosen.fileDrive)) {
        folders_.refresh();
        return;
    }
    close();
    showTableOnScreen(zormod_);
}

void FileChoice::deleteChosen() {
    FileIdentity& file = zormod_.file;
    Files& files = zormod_.platform.files;
    const Name chosen = chosenName();
    file.otherFileName = chosen.fileName;
    file.otherFileDrive = chosen.fileDrive;
    const Text dataPath = fullPath(chosen.fileDrive, chosen.fileName);
    const Text itemPath = otherItemFilePath(zormod_, chosen.fileName);
    // Another drive letter, or a link, may lead to the open table, too: files are compared, not their names.
    if (!file.fileName.empty() && (files.isSameFile(fullPath(file.fileDrive, file.fileName), dataPath) ||
                                   files.isSameFile(itemFilePath(zormod_, file.fileName), itemPath))) {
        zormod_.platform.dialogs.showMessage(u"作業中のﾌｧｲﾙは削除出来ません", u"確認");
        return;
    }
    if (!files.exists(dataPath)) {
        zormod_.platform.dialogs.showMessage(u"ﾛﾐｶﾌｧｲﾙではない可能性があります。", u"確認");
        return;
    }
    const auto claim = claimTable(zormod_, dataPath);
    if (!claim) {
        return;
    }
    // What a killed operation left beside the table is worked off, or it would meet the next table of that name.
    recoverTable(zormod_, chosen.fileName, chosen.fileDrive);
    if (!readOtherItemFile(zormod_, chosen.fileName, chosen.fileDrive).empty()) {
        closeAllFiles(zormod_);
        if (!file.fileName.empty()) {
            openDataFile(zormod_);
        }
        return;
    }
    files.remove(dataPath);
    files.remove(itemPath);
    folders_.refresh();
    talkS(zormod_, u"削除されました");
}

void FileChoice::close() {
    isClosed_ = true;
    zormod_.taskWord.clear();
    zormod_.platform.forms.close(u"frmDISK");
}
