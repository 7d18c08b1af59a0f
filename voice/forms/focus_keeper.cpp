#include "voice/forms/focus_keeper.h"

#include <QApplication>
#include <QDialog>

FocusKeeper::FocusKeeper(QDialog& form)
    : form_(&form), window_(QApplication::activeWindow()), focused_(QApplication::focusWidget()) {}

FocusKeeper::~FocusKeeper() {
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
    // A routine behind the form may have given the focus to another control. The reason says that nobody moved, so no
    // control announces itself.
    QWidget* inWindow = window_->focusWidget();
    if (QWidget* control = inWindow != nullptr ? inWindow : focused_.data()) {
        control->setFocus(Qt::ActiveWindowFocusReason);
    }
}
