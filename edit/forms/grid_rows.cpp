#include "edit/forms/grid_rows.h"

#include "edit/sheet_rows.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"

bool GridRows::takeShape(const GridShape& shape) {
    if (shape == shape_) {
        return false;
    }
    beginResetModel();
    shape_ = shape;
    ++rebuilds_;
    endResetModel();
    return true;
}

void GridRows::refresh() {
    if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
        Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
    }
}

void GridRows::refreshRow(int row) {
    if (row >= 1 && row <= rowCount()) {
        Q_EMIT dataChanged(index(row - 1, 0), index(row - 1, columnCount() - 1));
    }
}

int GridRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shape_.rows;
}

int GridRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shape_.widths.size());
}

QVariant GridRows::data(const QModelIndex& index, int role) const {
    // Without a current cell the toolkit's own copy key asks for the text of none.
    return role == Qt::DisplayRole && index.isValid()
               ? QVariant(toQt(viewCell(zormod_, index.row() + 1, index.column())))
               : QVariant();
}

QVariant GridRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(Qt::AlignVCenter | (orientation == Qt::Vertical ? Qt::AlignRight : Qt::AlignLeft));
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return toQt(plainNumber(recordOfRow(zormod_, section + 1)));
    }
    return itemHasPlace(zormod_, section) ? QVariant(toQt(zormod_.items.itemName[section])) : QVariant();
}
