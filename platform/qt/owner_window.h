#pragma once
// Hands the keyboard back from a form that is being left to the window beneath it. Modal forms have modal_runner for
// that; forms that don't stop their caller use this.

class QWidget;

/// Makes the window that `form` was opened from the active one, at once; its control that had the focus gets it without
/// announcing itself. Nothing for a form without an owner.
void activateOwner(const QWidget& form);
