#include "edit/forms/card_rows.h"

#include "edit/sheet_rows.h"
#include "platform/number_text.h"
#include "platform/qt/qt_text.h"

namespace {
enum Column { number, name, cell, columns };
} // namespace

void CardRows::refresh() {
    const int rows = static_cast<int>(headerCells(zormod_).size());
    if (rows != rows_) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
    } else if (rows > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, columns - 1));
    }
}

int CardRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int CardRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant CardRows::data(const QModelIndex& index, int role) const {
    const int item = index.row();
    if (role != Qt::DisplayRole || !itemHasPlace(zormod_, item)) {
        return {};
    }
    switch (index.column()) {
    case number:
        return toQt(plainNumber(item));
    case name:
        return toQt(zormod_.items.itemName[item]);
    default:
        return toQt(viewCell(zormod_, currentRow(zormod_), item));
    }
}

QVariant CardRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
        return {};
    }
    switch (section) {
    case name:
        return toQt(u"項目名");
    case cell:
        return toQt(u"  データ");
    default:
        return QString();
    }
}
