#include "app/entry.h"

#include "edit/status_update.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/screen.h"
#include "sheet/record_window.h"
#include "start/sample_board.h"
#include "start/table_opening.h"
#include "voice/reading_mode.h"

#include <algorithm>

namespace {

/// Splits the command line's text into drive and name; without a drive the program's folder comes in front.
void nameTable(ZORMOD& zormod, Text path) {
    path = zormod.platform.files.fromCommandLine(trimmed(path));
    if (path.find(u':') == Text::npos) {
        path.erase(0, std::min(path.find_first_not_of(u'\\'), path.size()));
        path = zormod.file.programFolder + path;
    }
    const std::size_t colon = path.find(u':');
    zormod.file.fileDrive = colon == 0 ? Text() : path.substr(colon - 1, 1);
    zormod.file.fileName = path.substr(colon + 1);
}

} // namespace

void enterProgram(ZORMOD& zormod) {
    SpeechState& speech = zormod.speech;
    const ClipboardText clipboard = zormod.platform.clipboard.read();
    if (clipboard.ok) {
        speech.userClipboard = clipboard.text;
    }
    speech.speechMode = 0;
    Text folder = zormod.platform.files.currentFolder();
    if (folder.empty() || folder.back() != u'\\') {
        folder += u'\\';
    }
    zormod.file.programFolder = folder;
    copy000(zormod);
    readZorTalk(zormod);
    zormod.platform.screen.showReadingMode(speech.speechMode);
    zormod.platform.screen.setTitle(Text(titleWithoutTable));
}

void openFromCommandLine(EditScreen& edit, const Text& argument) {
    ZORMOD& zormod = edit.zormod;
    nameTable(zormod, argument);
    try {
        if (!openNamedTable(zormod)) {
            forgetTable(zormod);
            return;
        }
    } catch (const RuntimeFailure&) {
        const Text text = zormod.file.fileName + u"はﾛﾐｶﾌｧｲﾙではありません";
        forgetTable(zormod);
        zormod.platform.dialogs.showMessage(text, {});
        return;
    }
    try {
        fillFirstWindow(zormod);
        updateTitle(zormod);
        showOpenedTable(edit);
    } catch (const RuntimeFailure& failure) {
        throw FatalFailure{failure.kind, u"コマンドラインが異常です", {}};
    }
}
