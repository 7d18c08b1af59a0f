#pragma once
// The one answer to the toolkit's question, asked before each key press, whether the focused control claims the key
// against the accelerators. Left to themselves, text boxes claim their editing keys (Ctrl+A, Ctrl+U, Ctrl+Y ...) and
// swallow plain letters of no concern to menus; which ones differs from platform to platform.

class QKeyEvent;

/// The order in which a key is offered: accelerators and Alt+letter of the form in force, then the form-level keys,
/// then the control.
class ShortcutRule {
public:
    /// Answers for a control: it never claims a key. A key that no accelerator wants comes back to it as an ordinary
    /// key press, so nothing is lost by letting all of them go.
    static void answer(QKeyEvent& shortcutOverride);
};
