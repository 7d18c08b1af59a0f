#include "voice/forms/message_dialogs.h"

#include "sheet/zormod.h"
#include "voice/forms/FrmOK.h"
#include "voice/forms/frmCMSG.h"
#include "voice/forms/frmOKCAN.h"
#include "voice/forms/frmTin.h"
#include "voice/forms/modal_runner.h"

#include <QApplication>

namespace {

QWidget* activeForm() {
    return QApplication::activeWindow();
}

Text titleOr(const Text& title) {
    if (!title.empty()) {
        return title;
    }
    QWidget* focused = QApplication::focusWidget();
    const SpokenForm* form = SpokenForm::nearest(focused != nullptr ? focused : activeForm());
    return form != nullptr ? form->caption() : Text();
}

} // namespace

void MessageDialogs::showMessage(const Text& text, const Text& title) {
    FrmOK form(*context_, text, titleOr(title), activeForm());
    context_->modals.run(form);
}

Answer MessageDialogs::askOkCancel(const Text& text, const Text& title) {
    frmOKCAN form(*context_, text, titleOr(title), activeForm());
    return answered(context_->modals.run(form));
}

Text MessageDialogs::askText(const Text& prompt, const Text& title, const Text& defaultText) {
    frmTin form(*context_, prompt, titleOr(title), defaultText, activeForm());
    return context_->modals.run(form) == QDialog::Accepted ? form.answer() : Text();
}

Answer MessageDialogs::askYesNoCancel(const Text& prompt, const Text& text) {
    frmCMSG form(*context_, text, prompt, activeForm());
    return answered(context_->modals.run(form));
}

Answer MessageDialogs::answered(int result) {
    // The close box leaves the form's result at "rejected", which is no answer of its own.
    const Answer answer = result == QDialog::Rejected ? Answer::cancel : static_cast<Answer>(result);
    context_->zormod.results.msgAnswer = static_cast<std::int16_t>(answer);
    return answer;
}
