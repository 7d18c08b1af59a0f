#pragma once
// A message that the user closes. Shown by message_dialogs alone.

#include "voice/forms/spoken_dialog.h"

/// `FrmOK`: label `Label1` and the button `Command1`. Enter, Space, Esc or a click close it.
class FrmOK : public SpokenDialog {
    Q_OBJECT
public:
    FrmOK(const FormContext& context, const Text& text, const Text& title, QWidget* parent);
};
