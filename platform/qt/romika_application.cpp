#include "platform/qt/romika_application.h"

#include "platform/qt/guard.h"
#include "platform/qt/x11_keyboard.h"

#include <QFont>

RomikaApplication::RomikaApplication(int& argc, char** argv) : QApplication(argc, argv) {
    makeAutoRepeatDetectable(*this);
    // Half-width characters are exactly half as wide as full-width ones in this font, at even pixel sizes.
    QFont font(QStringLiteral("IPAGothic"));
    font.setPixelSize(16);
    setFont(font);
}

bool RomikaApplication::notify(QObject* receiver, QEvent* event) {
    bool handled = false;
    if (guard_ == nullptr) {
        return QApplication::notify(receiver, event);
    }
    guard_->catchFrom([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}
