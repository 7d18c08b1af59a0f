#include "platform/qt/x11_keyboard.h"

#include <QGuiApplication>

#include <X11/XKBlib.h> // here alone: its macros clash with the toolkit's names

namespace {

/// Null where there is no X server. The offscreen platform has the interface too, but no display behind it.
Display* displayOf(const QGuiApplication& application) {
    auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->display() : nullptr;
}

} // namespace

void makeAutoRepeatDetectable(QGuiApplication& application) {
    if (Display* display = displayOf(application)) {
        Bool supported = False;
        XkbSetDetectableAutoRepeat(display, True, &supported);
    }
}

bool isKeyUp(quint32 scanCode) {
    char map[32] = {};
    Display* display = qApp != nullptr ? displayOf(*qApp) : nullptr;
    if (display == nullptr || scanCode >= 8 * sizeof map || XQueryKeymap(display, map) == 0) {
        return false;
    }
    return (map[scanCode / 8] >> (scanCode % 8) & 1) == 0;
}
