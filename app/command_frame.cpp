#include "app/command_frame.h"

#include "edit/movement.h"
#include "edit/range_keys.h"
#include "edit/status_update.h"
#include "sheet/record_window.h"

#include <utility>

void bindWithTable(CommandTable& commands, EditScreen& edit, TextView name, std::function<void(EditScreen&)> routine) {
    commands.bind(name, [&edit, routine = std::move(routine)] {
        if (!beepsWithoutTable(edit.zormod)) {
            routine(edit);
        }
    });
}

void leaveTyping(EditScreen& edit) {
    commitTypedText(edit);
    commitRecord(edit.zormod);
    clearInputBox(edit);
}

void beginTask(EditScreen& edit, TextView taskWord) {
    edit.zormod.taskWord = Text(taskWord);
    leaveTyping(edit);
}

void endTask(EditScreen& edit) {
    edit.zormod.taskWord.clear();
    if (edit.zormod.selection.selectionKind != 0) {
        cancelRange(edit);
        return;
    }
    clearInputBox(edit);
    giveInputBoxFocus(edit);
}
