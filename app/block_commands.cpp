#include "app/block_commands.h"

#include "app/command_frame.h"
#include "edit/movement.h"
#include "edit/status_update.h"
#include "structure/block_operations.h"
#include "structure/range_questions.h"

namespace {

void mnuZDEL(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    const Selection range = zormod.selection;
    if (range.selectionKind == 0) {
        tellMissingRange(zormod, MissingRange::blockToClear);
        giveInputBoxFocus(edit);
        return;
    }
    beginTask(edit, {});
    if (isAnsweredYes(zormod, clearRangeQuestion(range))) {
        clearRange(zormod, range.selRecordFrom, range.selRecordTo, range.selItemFrom, range.selItemTo);
    }
    endTask(edit);
}

} // namespace

void bindBlockCommands(CommandTable& commands, EditScreen& edit) {
    bindWithTable(commands, edit, u"mnuZDEL", mnuZDEL);
}
