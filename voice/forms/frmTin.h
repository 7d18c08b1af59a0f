#pragma once
// A question that is answered with a line of text. Shown by message_dialogs alone.

#include "voice/forms/spoken_dialog.h"

class KeyLineEdit;

/// `frmTin`: prompt `Label1`, box `Text1`, buttons `Command1` (OK) and `Command2` (cancel). Enter in the box accepts;
/// Esc and the close box cancel.
class frmTin : public SpokenDialog {
    Q_OBJECT
public:
    frmTin(const FormContext& context, const Text& prompt, const Text& title, const Text& defaultText, QWidget* parent);

    /// The text of the box; meant only when the form was accepted.
    Text answer() const;

private:
    KeyLineEdit* box_;
};
