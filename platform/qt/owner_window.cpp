#include "platform/qt/owner_window.h"

#include <QApplication>
#include <QWidget>

void activateOwner(const QWidget& form) {
    QWidget* owner = form.parentWidget() != nullptr ? form.parentWidget()->window() : nullptr;
    if (owner != nullptr) {
        // The window manager answers later, and not each of them does; whoever speaks next must find the focus there.
        owner->activateWindow();
        QApplication::setActiveWindow(owner);
    }
}
