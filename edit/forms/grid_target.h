#pragma once
// The green cells of the grid view: where a range that is being copied or moved would go. They lie over the grid's own
// selection, which shows the range itself. frmGrid tells them which cells they are.

#include "platform/screen.h"

#include <QStyledItemDelegate>

#include <optional>

struct ZORMOD;

/// Draws the cells of a grid view, those of the target in its colour with black letters.
class GridTarget : public QStyledItemDelegate {
    Q_OBJECT
public:
    GridTarget(const ZORMOD& zormod, QObject* parent) : QStyledItemDelegate(parent), zormod_(zormod) {}
    /// The target from now on, also outside the window; nothing: there is none.
    void set(std::optional<CellRange> range) { range_ = range; }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const ZORMOD& zormod_;
    std::optional<CellRange> range_;
};
