#pragma once
// The grid of the design form on the screen. It is looked at and clicked on; typing goes through `itemin` alone. Letters
// are large, and the cell in hand is marked as strongly as if the focus were here.

#include "structure/forms/design_rows.h"

#include <QTableView>

/// The grid, named `Grid1`, without the focus.
class DesignGrid : public QTableView {
    Q_OBJECT
public:
    DesignGrid(const TableDesign& design, QWidget* parent);

    /// Shows the design and brings its cell in hand into view.
    void showDesign();

private:
    const TableDesign& design_;
    DesignRows* rows_;
};

/// The desktop's letters half as large again, for the cells that are worked in.
QFont largeFont(const QWidget& widget);
