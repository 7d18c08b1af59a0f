#include "voice/forms/modal_runner.h"

#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "voice/forms/focus_keeper.h"

#include <QDialog>
#include <QEventLoop>
#include <QPointer>

int ModalRunner::run(QDialog& form) {
    heldKeys_.muteHeld();
    const QPointer<QDialog> alive(&form);
    const FocusKeeper keeper(form);
    QEventLoop loop;
    QObject::connect(&form, &QDialog::finished, &loop, [&] {
        heldKeys_.muteHeld();
        loop.quit();
    });
    form.setWindowModality(Qt::ApplicationModal);
    form.setResult(QDialog::Rejected);
    form.show();
    form.activateWindow();
    guard_.runLoop(loop);
    return alive ? form.result() : QDialog::Rejected;
}
