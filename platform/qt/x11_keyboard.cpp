#include "platform/qt/x11_keyboard.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QWidget>

#include <X11/XKBlib.h> // here alone: its macros clash with the toolkit's names
#include <X11/keysym.h>
#include <xcb/xcb.h>

namespace {

/// Null where there is no X server. The offscreen platform has the interface too, but no display behind it.
Display* displayOf(const QGuiApplication& application) {
    auto* x11 = application.nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->display() : nullptr;
}

xcb_connection_t* connection() {
    auto* x11 = qApp != nullptr ? qApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_window_t windowOf(const QWidget& form) {
    return static_cast<xcb_window_t>(form.internalWinId());
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

quint32 scanCodeOfEscape() {
    Display* display = qApp != nullptr ? displayOf(*qApp) : nullptr;
    return display != nullptr ? XKeysymToKeycode(display, XK_Escape) : 0;
}

std::optional<NativeKey> nativeKey(const QByteArray& type, const void* message) {
    if (type != "xcb_generic_event_t") {
        return std::nullopt;
    }
    constexpr unsigned sentMark = 0x80;
    // Presses and releases have one shape.
    const auto& event = *static_cast<const xcb_key_press_event_t*>(message);
    const unsigned kind = event.response_type & ~sentMark;
    if (kind != XCB_KEY_PRESS && kind != XCB_KEY_RELEASE) {
        return std::nullopt;
    }
    return NativeKey{.key = {.isPress = kind == XCB_KEY_PRESS,
                             .code = event.detail,
                             .modifiers = event.state,
                             .time = event.time},
                     .window = event.event,
                     .isSent = (event.response_type & sentMark) != 0};
}

void sendKey(const RawKey& key, const QWidget& form) {
    xcb_connection_t* server = connection();
    if (server == nullptr || windowOf(form) == 0) {
        return;
    }
    xcb_key_press_event_t event{};
    event.response_type = key.isPress ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
    event.detail = static_cast<xcb_keycode_t>(key.code);
    event.time = key.time;
    event.root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    event.event = windowOf(form);
    event.state = static_cast<std::uint16_t>(key.modifiers);
    event.same_screen = 1;
    // Without a mask of events it goes to the program that made the window.
    xcb_send_event(server, 0, event.event, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    xcb_flush(server);
}
