#include "voice/forms/modal_runner.h"

#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QPointer>

namespace {

/// Gives the focus back at its end, by whatever way the loop was left.
class FocusKeeper {
public:
    explicit FocusKeeper(QDialog& form)
        : form_(&form), window_(QApplication::activeWindow()), focused_(QApplication::focusWidget()) {}
    ~FocusKeeper() {
        if (form_) {
            form_->hide();
        }
        // Not every window manager, and no bare X server, hands the activation back by itself. It comes back with a
        // later event; the toolkit is told at once, because the caller may ask the next question before that.
        if (!window_ || !window_->isVisible()) {
            return; // closed before the form came up; what was opened meanwhile has the keyboard
        }
        window_->activateWindow();
        QApplication::setActiveWindow(window_);
        // A routine behind the form may have given the focus to another control. The reason says that nobody moved, so
        // no control announces itself.
        QWidget* inWindow = window_->focusWidget();
        if (QWidget* control = inWindow != nullptr ? inWindow : focused_.data()) {
            control->setFocus(Qt::ActiveWindowFocusReason);
        }
    }
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

private:
    QPointer<QDialog> form_;
    QPointer<QWidget> window_;
    QPointer<QWidget> focused_;
};

} // namespace

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
