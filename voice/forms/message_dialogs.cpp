#include "voice/forms/message_dialogs.h"

#include "platform/qt/held_keys.h"
#include "sheet/zormod.h"
#include "voice/forms/FrmOK.h"
#include "voice/forms/focus_keeper.h"
#include "voice/forms/frmCMSG.h"
#include "voice/forms/frmDOE.h"
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

MessageDialogs::MessageDialogs() = default;
MessageDialogs::~MessageDialogs() = default;

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

void MessageDialogs::openProgress(const Text& name, const Text& caption, bool canStop) {
    closeProgress();
    context_->heldKeys.muteHeld(); // the key that started the work must not press the button
    progress_ = new frmDOE(*context_, {.name = name, .caption = caption, .canStop = canStop}, activeForm());
    focusBefore_ = std::make_unique<FocusKeeper>(*progress_);
    progress_->show();
    progress_->activateWindow();
    progress_->loaded();
}

void MessageDialogs::showProgress(const Text& text) {
    if (isProgressOpen() && progress_) {
        progress_->setProgress(text);
    }
}

void MessageDialogs::closeProgress() {
    if (!isProgressOpen()) {
        return;
    }
    context_->heldKeys.muteHeld();
    focusBefore_.reset();
    if (progress_) {
        progress_->deleteLater(); // its own button may be what closes it
    }
}

Answer MessageDialogs::answered(int result) {
    // The close box leaves the form's result at "rejected", which is no answer of its own.
    const Answer answer = result == QDialog::Rejected ? Answer::cancel : static_cast<Answer>(result);
    context_->zormod.results.msgAnswer = static_cast<std::int16_t>(answer);
    return answer;
}
