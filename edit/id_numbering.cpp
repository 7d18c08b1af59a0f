#include "edit/id_numbering.h"

#include "edit/movement.h"
#include "edit/number_prompt.h"
#include "edit/status_update.h"
#include "platform/dialogs.h"
#include "platform/number_reader.h"
#include "sheet/cell.h"

namespace {

void switchOff(EditScreen& edit) {
    edit.zormod.input.idAutoOn = 0;
    Text label = edit.Label13;
    if (const auto mark = label.find(idAutoMark); mark != Text::npos) {
        label.erase(mark, idAutoMark.size());
    }
    setPanelText(edit, PanelField::Label13, label);
}

} // namespace

void mnuIDAUTO(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (zormod.items.itemCount == 0) {
        zormod.platform.dialogs.showMessage(u"項目区切り数０の場合は、この機能は使えません", u"注意");
        giveInputBoxFocus(edit);
        return;
    }
    if (zormod.input.idAutoOn != 0) {
        switchOff(edit);
        return;
    }
    const Text answer =
        askTrimmed(zormod, u"ＩＤ項目は自動更新されます。初期値を入れて下さい。", u"ID番号の初期値", u"1");
    if (answer.empty()) {
        giveInputBoxFocus(edit);
        return;
    }
    zormod.input.idAutoValue = roundToSingle(Val(answer));
    zormod.input.idAutoOn = 1;
    applyIdAuto(edit);
    zormod.platform.screen.redrawCurrentRow();
    setPanelText(edit, PanelField::Label13, getCell(zormod, 0).append(idAutoMark));
    giveInputBoxFocus(edit);
}
