#include "edit/input_limit.h"

#include "edit/movement.h"
#include "edit/number_prompt.h"
#include "edit/status_update.h"
#include "platform/dialogs.h"
#include "platform/number_text.h"

namespace {

constexpr std::int16_t widestLimit = 249;

void putInForce(EditScreen& edit, std::int16_t limit) {
    edit.zormod.input.inputLimit = limit;
    edit.zormod.platform.screen.colourLabel(PanelField::Label8, limit == 0 ? LabelGround::green : LabelGround::yellow);
    setPanelText(edit, PanelField::Label8, u"入力字数制限:" + (limit == 0 ? Text(u"項目幅") : plainNumber(limit)));
}

} // namespace

void mnuLIMIT(EditScreen& edit) {
    ZORMOD& zormod = edit.zormod;
    if (beepsWithoutTable(zormod)) {
        return;
    }
    if (zormod.input.inputLimit != 0) {
        if (zormod.platform.dialogs.askOkCancel(u"入力文字数を項目幅とします", {}) == Answer::ok) {
            putInForce(edit, 0);
        }
        giveInputBoxFocus(edit);
        return;
    }
    const auto limit = askNumberWithin(
        zormod, {.prompt = u"入力字数を制限します。入力字数を指定してください\r"
                           u" なおスペースｷｰ　又はＥｎｄｷｰを叩きますと字数制限時でも制限を一時解除出来ます。\r"
                           u"再度CTRL+bで字数制限は解除されます。",
                 .title = u"データ入力字数制限",
                 .lowest = 1,
                 .highest = widestLimit,
                 .zeroGivesUp = true});
    if (limit) {
        putInForce(edit, *limit);
    }
    giveInputBoxFocus(edit);
}
