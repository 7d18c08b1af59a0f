#include "platform/qt/x11_auto_repeat.h"

#include <QGuiApplication>

#include <X11/XKBlib.h> // here alone: its macros clash with the toolkit's names

void makeAutoRepeatDetectable(QGuiApplication& application) {
    if (auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>()) {
        Bool supported = False;
        XkbSetDetectableAutoRepeat(x11->display(), True, &supported);
    }
}
