#pragma once
// A question that is answered with yes, no, or not at all. Shown by message_dialogs alone.

#include "voice/forms/spoken_dialog.h"

class MessageLabel;

/// `frmCMSG`: label `lblMSG`, buttons `cmdYES`, `cmdNO` and `Command1`. Y, N and Esc answer wherever the focus is. Its
/// result is an Answer; the close box cancels.
class frmCMSG : public SpokenDialog {
    Q_OBJECT
public:
    /// An empty `title` leaves the form its own.
    frmCMSG(const FormContext& context, const Text& text, const Text& title, QWidget* parent);

private:
    KeyOutcome keyDown(const KeyStroke& stroke);

    Text text_;
    MessageLabel* label_;
};
