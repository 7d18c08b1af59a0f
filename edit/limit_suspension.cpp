#include "edit/limit_suspension.h"

#include "edit/status_update.h"
#include "platform/number_text.h"
#include "voice/announcement.h"

#include <utility>

void toggleInputLimit(EditScreen& edit) {
    std::int16_t& limit = edit.zormod.input.inputLimit;
    if (limit != 0) {
        edit.savedLimit = std::exchange(limit, std::int16_t{0});
        talkS(edit.zormod,
              u"入力字数制限を一時解除します。もう一度スペースｷｰを叩くと入力字数制限が復活します");
        setPanelText(edit, PanelField::Label8, u"入力字数制限一時解除");
    } else if (edit.savedLimit != 0) {
        limit = std::exchange(edit.savedLimit, std::int16_t{0});
        setPanelText(edit, PanelField::Label8, u"入力字数制限:" + plainNumber(limit));
        talkS(edit.zormod, u"入力字数制限を復活します。" + edit.Label8);
    }
}

bool clearsRestoringBlank(EditScreen& edit, const KeyStroke& stroke) {
    const bool isKey = stroke == plainKey(Key::space) || stroke == plainKey(Key::end);
    if (!isKey || edit.zormod.input.inputLimit == 0 || edit.txtinputbox.text() != u" ") {
        return false;
    }
    clearInputBox(edit);
    return true;
}
