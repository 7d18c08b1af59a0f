#include "app/start_commands.h"

#include "edit/movement.h"
#include "edit/status_update.h"
#include "platform/forms.h"
#include "sheet/record_window.h"
#include "start/file_choice.h"
#include "start/model_files.h"
#include "start/start_screen.h"
#include "start/table_opening.h"

namespace {

/// What is typed goes into its cell and the row to the disk before the user leaves the window.
void commitBeforeLeaving(EditScreen& edit) {
    if (!hasTable(edit.zormod)) {
        return;
    }
    const bool typed = commitTypedText(edit);
    commitRecord(edit.zormod);
    if (typed) {
        showCurrentCell(edit);
    }
}

void chooseFile(EditScreen& edit, TextView taskWord) {
    commitBeforeLeaving(edit);
    edit.zormod.taskWord = Text(taskWord);
    edit.zormod.platform.forms.open(u"frmDISK");
}

/// `mnuItemList`, Ctrl+L.
void showItemList(EditScreen& edit) {
    if (!beepsWithoutTable(edit.zormod)) {
        edit.zormod.platform.forms.open(u"frmItemList");
        giveInputBoxFocus(edit);
    }
}

} // namespace

void bindStartCommands(CommandTable& commands, EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    commands.bind(showOpenedTableCommand, showOpenedTable, edit);
    commands.bind(u"mnuREAD", [&edit] { chooseFile(edit, openFileWord); });
    commands.bind(u"mnuDEL", [&edit] { chooseFile(edit, deleteFileWord); });
    commands.bind(u"mnuItemList", showItemList, edit);
    commands.bind(u"mnuSINKI", startNewTable, zormod);
    commands.bind(u"mnuKiSON", startFromFile, zormod);
    commands.bind(u"mnuSYURYOU", endFromStart, zormod);
    for (const Model& model : models()) {
        commands.bind(model.entry, [&zormod, number = model.number] { startWithModel(zormod, number); });
    }
}
