#include "edit/forms/grid_target.h"

#include "edit/forms/view.h"
#include "edit/sheet_rows.h"

void GridTarget::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const std::int32_t record = recordOfRow(zormod_, index.row() + 1);
    if (!range_ || record < range_->firstRecord || record > range_->lastRecord || index.column() < range_->firstItem ||
        index.column() > range_->lastItem) {
        return;
    }
    option->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    option->backgroundBrush = maskColour(MaskKind::target);
    option->palette.setColor(QPalette::Text, Qt::black);
}
