#include "platform/qt/owner_window.h"

#include "platform/qt/held_keys.h"

#include <QApplication>
#include <QWidget>

void activateOwner(const QWidget& form, HeldKeys& heldKeys) {
    heldKeys.muteHeld();
    QWidget* owner = form.parentWidget() != nullptr ? form.parentWidget()->window() : nullptr;
    if (owner != nullptr) {
        // The window manager answers later, and not each of them does; whoever speaks next must find the focus there.
        owner->activateWindow();
        QApplication::setActiveWindow(owner);
    }
}
