#pragma once
// The small window in which a range is drawn. What its keys do and what is said at them is decided by the drawing it is
// made for.

#include "edit/range_drawing.h"
#include "voice/forms/spoken_dialog.h"

#include <array>

class KeyButton;
class KeyLineEdit;
class QLabel;

/// `frmHANI`: the ends of the range `Text1` to `Text4`, the key box `Text5`, the buttons `Command2` (done) and
/// `Command1` (give up), and the prompt `Label6`.
class frmHANI : public SpokenDialog {
    Q_OBJECT
public:
    frmHANI(const FormContext& context, RangeDrawing& drawing, QWidget* owner);
    ~frmHANI() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void addFields();
    void addKeyBox();
    void addButtons();
    void showRange();
    void moveOutOfTheWay();

    RangeDrawing& drawing_;
    std::array<KeyLineEdit*, 4> fields_;
    KeyLineEdit* keyBox_;
    KeyButton* done_;
    KeyButton* giveUp_;
    QLabel* prompt_;
};
