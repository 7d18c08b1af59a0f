#include "platform/qt/romika_application.h"

#include "platform/qt/guard.h"
#include "platform/qt/x11_keyboard.h"

#include <QFontInfo>

RomikaApplication::RomikaApplication(int& argc, char** argv) : QApplication(argc, argv) {
    makeAutoRepeatDetectable(*this);
    QFont font(QStringLiteral("IPAGothic"));
    font.setPixelSize(letterPixels(QFontInfo(this->font()).pixelSize()));
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
