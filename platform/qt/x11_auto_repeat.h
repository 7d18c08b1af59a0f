#pragma once
// Asks the X server to report a held key as presses without releases between them. Without it most repeats come as
// pairs of a release and a press that nothing tells from real ones, and a held key would speak on each.

class QGuiApplication;

/// Does nothing where there is no X server.
void makeAutoRepeatDetectable(QGuiApplication& application);
