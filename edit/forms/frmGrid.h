#pragma once
// The grid view: the window as a table of cells. A range is shown by the grid's own selection, the place where it would
// go in green. Form1 owns it.

#include "edit/forms/view.h"

#include <optional>

class GridRows;
class GridTarget;
class QLabel;
class QTableView;

/// The grid view.
class frmGrid : public View {
    Q_OBJECT
public:
    frmGrid(const FormContext& context, const ViewActions& actions, QWidget* parent);

    void redraw() override;
    void redrawCurrentRow() override;
    void paintMask(MaskKind kind, const CellRange& range) override;
    void hideMask() override;
    /// How often the columns have been laid anew: not at a mere move.
    int rebuilds() const;

protected:
    void showEvent(QShowEvent* event) override;
    void followLetters() override;

private:
    void fitColumns();
    void showCurrent();
    void markRange();

    QLabel* Label1; ///< data of the current cell
    QTableView* Grid1;
    GridRows* rows_;
    GridTarget* target_;
    std::optional<CellRange> range_; ///< what is selected, also outside the window
};
