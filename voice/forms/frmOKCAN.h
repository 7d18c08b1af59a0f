#pragma once
// A question that is confirmed or given up. Shown by message_dialogs alone.

#include "voice/forms/spoken_dialog.h"

/// `frmOKCAN`: label `Label1`, buttons `Command1` (OK) and `Command2` (cancel). Its result is an Answer; Esc and the
/// close box cancel.
class frmOKCAN : public SpokenDialog {
    Q_OBJECT
public:
    frmOKCAN(const FormContext& context, const Text& text, const Text& title, QWidget* parent);
};
