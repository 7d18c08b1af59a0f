#include "app/structure_commands.h"

#include "edit/movement.h"
#include "edit/status_update.h"
#include "platform/forms.h"
#include "sheet/record_window.h"

namespace {

/// Opens the design form for `taskWord`. Whatever came of it, the user is back in the input box.
void openDesign(EditScreen& edit, TextView taskWord) {
    ZORMOD& zormod = edit.zormod;
    if (hasTable(zormod)) {
        commitTypedText(edit);
        commitRecord(zormod);
        clearInputBox(edit);
    }
    zormod.taskWord = Text(taskWord);
    zormod.platform.forms.open(u"frmDESIGN");
    if (hasTable(zormod)) {
        giveInputBoxFocus(edit);
    }
}

} // namespace

void bindStructureCommands(CommandTable& commands, EditScreen& edit) {
    commands.bind(u"mnuNEW", [&edit] { openDesign(edit, {}); });
    commands.bind(u"mnuKOUMOKU", [&edit] {
        if (!beepsWithoutTable(edit.zormod)) {
            openDesign(edit, u"tdesign");
        }
    });
}
