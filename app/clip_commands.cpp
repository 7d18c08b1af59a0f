#include "app/clip_commands.h"

#include "app/command_frame.h"
#include "edit/movement.h"
#include "edit/status_update.h"
#include "structure/clip_file.h"
#include "structure/clip_paste.h"

namespace {

void withTheRowOnDisk(EditScreen& edit, void (*routine)(ZORMOD&)) {
    leaveTyping(edit);
    routine(edit.zormod);
    showCurrentCellAtRest(edit);
}

} // namespace

void bindClipCommands(CommandTable& commands, EditScreen& edit) {
    const auto bind = [&](TextView name, void (*routine)(ZORMOD&)) {
        bindWithTable(commands, edit, name, [routine](EditScreen& screen) { withTheRowOnDisk(screen, routine); });
    };
    bind(u"mnuCLIP", [](ZORMOD& zormod) { makeClip(zormod); });
    bind(u"mnuPAST", pasteOver);
    bind(u"mnuIPASTE", pasteInsert);
    bind(u"mnuDEPAST", undoPaste);
}
