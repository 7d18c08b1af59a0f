#pragma once
// Translates the toolkit's key codes into the keys that the logic's tables are written with. Pure functions; whether a
// press is a repeat and which press a release belongs to is known to held_keys alone.

#include "platform/keys.h"

#include <Qt>

class QKeyEvent;

/// The key of a toolkit's code. Digits of the keypad are their own keys as long as they are digits; with NumLock off
/// the keypad sends the keys that are printed beneath them. Codes that no table names give Key::other.
Key keyOfCode(int code, Qt::KeyboardModifiers modifiers);

/// `key` with the modifiers held besides it: a modifier key's own flag is left out, and Backtab is Tab with Shift.
KeyStroke strokeOf(Key key, Qt::KeyboardModifiers modifiers);

/// The stroke of a key press.
KeyStroke strokeOf(const QKeyEvent& event);
