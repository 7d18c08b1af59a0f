#pragma once
// What only the X server knows of the keyboard.

#include <QtGlobal>

class QGuiApplication;

/// Asks the X server to report a held key as presses without releases between them. Without it most repeats come as
/// pairs of a release and a press that nothing tells from real ones, and a held key would speak on each. Does nothing
/// where there is no X server.
void makeAutoRepeatDetectable(QGuiApplication& application);

/// True if the X server says that the key of this scan code is up now; false where there is no X server.
bool isKeyUp(quint32 scanCode);
