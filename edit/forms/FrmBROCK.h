#pragma once
// The form in which several blocks of records and items are typed. Opened by name through askBlockRanges; what it does
// is in edit/block_ranges.h.

#include "edit/block_ranges.h"
#include "voice/forms/spoken_dialog.h"

class KeyLineEdit;

/// `FrmBROCK`: `Text1`, `Text2`, `Label1`, `Command1`, `Command2`. Enter in a box presses `Command1`, Esc gives up.
class FrmBROCK : public SpokenDialog {
    Q_OBJECT
public:
    FrmBROCK(const FormContext& context, QWidget* parent);

private:
    void addControls();
    void bindKeys();
    void carryOut();
    void goBackTo(KeyLineEdit& box);

    BlockRanges ranges_;
    KeyLineEdit* records_;
    KeyLineEdit* items_;
};
