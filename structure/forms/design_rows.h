#pragma once
// The lines of the design grid as the toolkit's table asks for them, read from the design at every request.

#include "structure/table_design.h"

#include <QAbstractTableModel>

/// One line an item: number, name, alignment, width. The cell in hand shows what stands in `itemin`.
class DesignRows : public QAbstractTableModel {
    Q_OBJECT
public:
    DesignRows(const TableDesign& design, QObject* parent) : QAbstractTableModel(parent), design_(design) {}

    /// The grid has changed; another number of rows rebuilds.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const TableDesign& design_;
    int rows_ = 0;
};
