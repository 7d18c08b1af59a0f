#include "structure/forms/design_rows.h"

#include "platform/number_text.h"
#include "platform/qt/qt_text.h"
#include "structure/design_checks.h"

namespace {
constexpr int columns = 4;
} // namespace

void DesignRows::refresh() {
    const int rows = static_cast<int>(design_.rows.size());
    if (rows != rows_) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
    } else {
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, columns - 1));
    }
}

int DesignRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int DesignRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant DesignRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (role != Qt::DisplayRole || row >= design_.rows.size()) {
        return {};
    }
    if (index.column() == 0) {
        return toQt(plainNumber(index.row()));
    }
    const auto column = static_cast<DesignColumn>(index.column());
    const bool isInHand = index.row() == design_.row && column == design_.column;
    return toQt(isInHand ? design_.itemin : cellText(design_.rows[row], column));
}

QVariant DesignRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
        return {};
    }
    return toQt(columnHeader(section));
}
