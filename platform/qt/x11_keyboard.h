#pragma once
// What only the X server knows of the keyboard.

#include "platform/keys_on_hold.h"

#include <QtGlobal>

#include <optional>

class QByteArray;
class QGuiApplication;
class QWidget;

/// A key event as it comes from the X server, before the toolkit has seen it.
struct NativeKey {
    RawKey key;
    quintptr window = 0; ///< the X server's number of the window that it was sent to
    bool isSent = false; ///< by a program, not by a keyboard
};

/// Asks the X server to report a held key as presses without releases between them. Without it most repeats come as
/// pairs of a release and a press that nothing tells from real ones, and a held key would speak on each. Does nothing
/// where there is no X server.
void makeAutoRepeatDetectable(QGuiApplication& application);

/// True if the X server says that the key of this scan code is up now; false where there is no X server.
bool isKeyUp(quint32 scanCode);

/// The scan code of Esc; 0 where there is no X server.
quint32 scanCodeOfEscape();

/// The key event in what a native event filter is handed; nothing if it is another event or another window system's.
std::optional<NativeKey> nativeKey(const QByteArray& type, const void* message);

/// Sends a key event to the window of `form`, by way of the X server, from which it comes to the native event filters. Does
/// nothing where there is no X server.
void sendKey(const RawKey& key, const QWidget& form);
