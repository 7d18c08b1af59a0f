#include "app/item_commands.h"

#include "app/command_frame.h"
#include "edit/movement.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/dialogs.h"
#include "structure/item_operations.h"
#include "structure/range_questions.h"

#include <algorithm>

namespace {

constexpr std::int16_t itemKind = 3;

/// True if the range has every item, of which a table needs one; the user has been told then.
bool refusesToDeleteAll(ZORMOD& zormod, const Selection& range) {
    if (zormod.items.itemCount == 0) {
        zormod.platform.beeper.beep();
        return true;
    }
    if (std::min(range.selItemFrom, range.selItemTo) > 0 ||
        std::max(range.selItemFrom, range.selItemTo) < zormod.items.itemCount) {
        return false;
    }
    zormod.platform.beeper.beep();
    zormod.platform.dialogs.showMessage(u"すべての項目を削除することはできません", u"項目の削除");
    return true;
}

void mnuINSITEM(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    const Selection range = zormod.selection;
    if (range.selectionKind != itemKind) {
        tellMissingRange(zormod, MissingRange::itemsToInsert);
        giveInputBoxFocus(edit);
        return;
    }
    beginTask(edit, u"insitem");
    if (isAnsweredYes(zormod, insertItemsQuestion(range.selItemFrom, range.selItemTo))) {
        insertItems(zormod, range.selItemFrom, range.selItemTo);
    }
    endTask(edit);
}

void mnuKILLITEM(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    const Selection range = zormod.selection;
    if (range.selectionKind != itemKind) {
        tellMissingRange(zormod, MissingRange::items);
        giveInputBoxFocus(edit);
        return;
    }
    beginTask(edit, u"killitem");
    if (!refusesToDeleteAll(zormod, range) &&
        isAnsweredYes(zormod, deleteItemsQuestion(range.selItemFrom, range.selItemTo))) {
        deleteItems(zormod, range.selItemFrom, range.selItemTo);
    }
    endTask(edit);
}

} // namespace

void bindItemCommands(CommandTable& commands, EditScreen& edit) {
    bindWithTable(commands, edit, u"mnuINSITEM", mnuINSITEM);
    bindWithTable(commands, edit, u"mnuKILLITEM", mnuKILLITEM);
}
