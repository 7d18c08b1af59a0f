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
    return parent.isValid() ? 0 : static_cast<int>(shape_.widths.size()) + 1;
}

QVariant GridRows::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole && index.column() == 0) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const int row = index.row() + 1;
    if (index.column() == 0) {
        return toQt(plainNumber(recordOfRow(zormod_, row)));
    }
    return toQt(viewCell(zormod_, row, index.column() - 1));
}

QVariant GridRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal || !itemHasPlace(zormod_, section - 1)) {
        return {};
    }
    return toQt(zormod_.items.itemName[section - 1]);
}
