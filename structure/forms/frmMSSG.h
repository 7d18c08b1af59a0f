#pragma once
// The form in which the target of a move or a copy is chosen: instructions, the line that tells where the range would go,
// and a box that takes keys. What they do is in structure/pointer_choice.

#include "voice/forms/spoken_dialog.h"

class KeyButton;
class KeyLineEdit;
class PointerChoice;
class QLabel;

/// `frmMSSG`. It doesn't stop its caller; it stands above the sheet whose masks it moves.
class frmMSSG : public SpokenDialog {
    Q_OBJECT
public:
    frmMSSG(const FormContext& context, PointerChoice& choice, QWidget* owner);
    ~frmMSSG() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showTexts();

    PointerChoice& choice_;
    QLabel* instructions_;
    QLabel* line_;
    KeyLineEdit* box_;
    KeyButton* carryOut_;
};
