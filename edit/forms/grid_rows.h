#pragma once
// The cells of the grid view as the toolkit's table asks for them, read from the record window at every request.

#include "edit/view_rules.h"

#include <QAbstractTableModel>

/// One line a row of the window, headed by the record number; a column for each item from 0.
class GridRows : public QAbstractTableModel {
    Q_OBJECT
public:
    GridRows(const ZORMOD& zormod, QObject* parent) : QAbstractTableModel(parent), zormod_(zormod) {}

    /// Takes the shape over. True if it differs from that of the last draw, so that the columns must be laid anew.
    bool takeShape(const GridShape& shape);
    /// All cells may have changed; the shape has not.
    void refresh();
    /// The cells of a window row (from 1) have changed.
    void refreshRow(int row);
    /// How often takeShape found another shape.
    int rebuilds() const { return rebuilds_; }
    /// The shape of the last draw.
    const GridShape& shape() const { return shape_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const ZORMOD& zormod_;
    GridShape shape_;
    int rebuilds_ = 0;
};
