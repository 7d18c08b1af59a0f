#pragma once
// Which keys copy, cut and paste. Our text boxes carry them out through the program's clipboard; left to themselves,
// the toolkit's boxes would use the system's behind it.

class QKeyEvent;

/// What a key asks of the clipboard.
enum class ClipboardKey { none, copy, cut, paste };

/// The meaning of a key press: the desktop's own keys, and Ctrl+C, Ctrl+X, Ctrl+V with their older forms on every
/// desktop.
ClipboardKey clipboardKeyOf(const QKeyEvent& event);
