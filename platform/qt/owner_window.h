#pragma once
// Hands the keyboard back from a form that is being left to the window beneath it. Modal forms have modal_runner for
// that; forms that don't stop their caller use this.

class HeldKeys;
class QWidget;

/// Makes the window that `form` was opened from the active one, at once; its control that had the focus gets it without
/// announcing itself. The key that closed the form stays mute until it is let go: Esc, held a little long, would end
/// the program from the edit screen. Without an owner nobody gets the keyboard.
void activateOwner(const QWidget& form, HeldKeys& heldKeys);
