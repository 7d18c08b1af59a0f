#pragma once
// The card view: one record, an item a line with its number, name and data. No range can be selected here. Form1 owns
// it.

#include "edit/forms/view.h"

class CardRows;
class QLabel;
class QTableView;

/// The card view.
class frmKOJIND : public View {
    Q_OBJECT
public:
    frmKOJIND(const FormContext& context, const ViewActions& actions, QWidget* parent);

    void redraw() override;
    void redrawCurrentRow() override;

protected:
    void showEvent(QShowEvent* event) override;
    void followLetters() override;

private:
    void fitColumns();

    QLabel* Label1; ///< the record's ID
    QTableView* Grid1;
    CardRows* rows_;
    int top_ = 0; ///< first item that is shown
};
