#pragma once
// The box of the design form through which the cells of the grid are typed: `itemin`, beside it the name of the cell in
// hand and the mark of overwriting. Made by the design form; what its keys do is decided in core.

#include "structure/table_design.h"
#include "voice/forms/SpokenForm.h"

#include <QWidget>

class KeyLineEdit;
class QLabel;

/// `itemin` with its surroundings.
class CellBox : public QWidget {
    Q_OBJECT
public:
    /// Takes `itemin` into `form`. `changed` runs when the design may have become another.
    CellBox(const FormContext& context, SpokenForm& form, TableDesign& design, std::function<void()> changed,
            QWidget* parent);

    KeyLineEdit& itemin() { return *itemin_; }
    /// Shows the cell in hand.
    void showCell();

private:
    void setRules();
    void overwriteNext(char16_t unit);

    SpokenForm& form_;
    TableDesign& design_;
    std::function<void()> changed_;
    QLabel* cell_;
    KeyLineEdit* itemin_;
    QLabel* overwriting_;
    int shownRow_ = -1;
    DesignColumn shownColumn_ = DesignColumn::name;
};
