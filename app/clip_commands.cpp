#include "app/clip_commands.h"

#include "app/command_frame.h"
#include "edit/movement.h"
#include "edit/status_update.h"
#include "structure/clip_file.h"
#include "structure/clip_paste.h"

namespace {

/// Runs `routine` with the row on the disk. What it has put on the clipboard, if it says so, is what the user is to have
/// or to hear, not the name of the box.
void withTheRowOnDisk(EditScreen& edit, bool (*routine)(ZORMOD&)) {
    leaveTyping(edit);
    if (routine(edit.zormod)) {
        edit.readingState = ReadingState::cellSaid;
    }
    showCurrentCellAtRest(edit);
}

} // namespace

void bindClipCommands(CommandTable& commands, EditScreen& edit) {
    const auto bind = [&](TextView name, bool (*routine)(ZORMOD&)) {
        bindWithTable(commands, edit, name, [routine](EditScreen& screen) { withTheRowOnDisk(screen, routine); });
    };
    bind(u"mnuCLIP", makeClip);
    bind(u"mnuPAST", [](ZORMOD& zormod) {
        pasteOver(zormod);
        return false;
    });
    bind(u"mnuIPASTE", pasteInsert);
    bind(u"mnuDEPAST", [](ZORMOD& zormod) {
        undoPaste(zormod);
        return false;
    });
}
