#pragma once
// Keys as the logic sees them, free of the toolkit's codes. The tables of keys in the edit screen are written with
// these.

#include "platform/text.h"

/// A key of the keyboard. Letters and digits of the main block are named by their capital letter or digit.
enum class Key {
    other, ///< any key that no table names
    enter, ///< Enter of either block
    escape, tab, backspace, space,
    left, right, up, down, home, end, pageUp, pageDown, insert, del,
    shift, control, alt, ///< the modifier keys themselves
    f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12,
    keypad0, keypad1, keypad2, keypad3, keypad4, keypad5, keypad6, keypad7, keypad8, keypad9,
    digit0, digit1, digit2, digit3, digit4, digit5, digit6, digit7, digit8, digit9,
    a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, r, s, t, u, v, w, x, y, z,
};

/// True for the modifier keys themselves.
constexpr bool isModifierKey(Key key) { return key == Key::shift || key == Key::control || key == Key::alt; }

/// A key with the modifier keys that are held besides it. For a modifier key itself its own flag is left out, so
/// {Key::shift} is "Shift and nothing else".
struct KeyStroke {
    Key key = Key::other;
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    bool operator==(const KeyStroke&) const = default;
};

/// What becomes of a key after a handler has seen it.
enum class KeyOutcome {
    goesOn, ///< the control does with it what it always does
    taken,  ///< the key is used up
};

/// The strokes of the tables in words: shiftKey(Key::up) is Shift+Up.
constexpr KeyStroke plainKey(Key key) { return {key, false, false, false}; }
constexpr KeyStroke shiftKey(Key key) { return {key, true, false, false}; }
constexpr KeyStroke ctrlKey(Key key) { return {key, false, true, false}; }
constexpr KeyStroke altKey(Key key) { return {key, false, false, true}; }
constexpr KeyStroke ctrlShiftKey(Key key) { return {key, true, true, false}; }

/// A text box as a key handler finds it. Positions count characters from 0.
struct BoxView {
    Text text{};
    int caret = 0;           ///< characters before the caret
    int selectionStart = 0;  ///< characters before the selection; the caret's place if nothing is selected
    int selectionLength = 0; ///< characters in the selection
};
