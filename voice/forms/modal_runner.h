#pragma once
// Runs modal forms: shows one, waits until it is closed, and leaves the focus where it was before, without a word. The
// keys that open and close it stay mute until they are let go. All modal forms go through it, so that no form has to
// know how a window system hands activation back.

class EventGuard;
class HeldKeys;
class QDialog;

/// The one way to wait for a form.
class ModalRunner {
public:
    ModalRunner(EventGuard& guard, HeldKeys& heldKeys) : guard_(guard), heldKeys_(heldKeys) {}

    /// Shows `form` application-modal and returns its result when it is closed. If an end of the program becomes
    /// pending meanwhile, the form is closed and the end is thrown here.
    int run(QDialog& form);

private:
    EventGuard& guard_;
    HeldKeys& heldKeys_;
};
