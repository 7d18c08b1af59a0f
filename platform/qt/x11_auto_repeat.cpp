#include "platform/qt/x11_auto_repeat.h"

#include <QGuiApplication>

#include <X11/XKBlib.h> // here alone: its macros clash with the toolkit's names

void makeAutoRepeatDetectable(QGuiApplication& application) {
    auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    // The offscreen platform has the interface too, but no display behind it.
    if (x11 != nullptr && x11->display() != nullptr) {
        Bool supported = False;
        XkbSetDetectableAutoRepeat(x11->display(), True, &supported);
    }
}
