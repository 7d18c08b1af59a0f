#include "edit/pinned_item.h"

#include "edit/movement.h"
#include "edit/number_prompt.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/forms.h"
#include "platform/number_text.h"

namespace {

constexpr TextView formName = u"frmSPITEM";

void refreshAndGoOn(EditScreen& edit) {
    refreshCurrentCell(edit);
    giveInputBoxFocus(edit);
}

void pin(EditScreen& edit, std::int16_t item) {
    edit.zormod.input.pinnedItem = item;
    edit.zormod.platform.forms.open(formName);
    refreshAndGoOn(edit);
}

} // namespace

void mnuSPITEM(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (zormod.input.pinnedItem >= 0) {
        zormod.input.pinnedItem = -1;
        zormod.platform.forms.close(formName);
        refreshAndGoOn(edit);
        return;
    }
    const auto item =
        askNumberWithin(zormod, {.prompt = u"指定項目ﾃﾞｰﾀを｡常時表示します｡ﾃﾞｰﾀ入力時参照のために使って下さい｡\r"
                                           u"この機能は｢項目番号｣ﾗﾍﾞﾙをWｸﾘｯｸしても実行できます｡",
                                 .title = u"常時ﾃﾞｰﾀ表示項目の設定",
                                 .defaultText = plainNumber(zormod.position.curItem),
                                 .highest = zormod.items.itemCount});
    if (item) {
        pin(edit, *item);
    } else {
        giveInputBoxFocus(edit);
    }
}

void togglePinnedByClick(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (zormod.position.curItem == 0) {
        zormod.platform.beeper.beep();
    } else if (zormod.input.pinnedItem != 0) {
        zormod.platform.forms.close(formName);
        zormod.input.pinnedItem = 0;
        refreshAndGoOn(edit);
    } else {
        pin(edit, zormod.position.curItem);
    }
}

void pinnedFormClosed(EditScreen& edit) {
    if (edit.zormod.input.pinnedItem >= 0) {
        edit.zormod.input.pinnedItem = -1;
        refreshAndGoOn(edit);
    }
}
