#pragma once
// The form of the change of an item's width. It shows six buttons and a box that takes keys; what they do is in
// structure/width_change.

#include "voice/forms/spoken_dialog.h"

class KeyButton;
class KeyLineEdit;
class WidthChange;

/// `frmFLN`. It doesn't stop its caller, but while it is open no other window takes keys or clicks.
class frmFLN : public SpokenDialog {
    Q_OBJECT
public:
    frmFLN(const FormContext& context, WidthChange& change, QWidget* owner);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    KeyButton* addButton(TextView caption, QAnyStringView name, void (WidthChange::*act)());

    WidthChange& change_;
    KeyLineEdit* box_;
};
