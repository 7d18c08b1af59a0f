#include "edit/forms/flow_layout.h"

#include <QWidget>

#include <algorithm>

namespace {
constexpr int narrowest = 200;
} // namespace

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {
    setContentsMargins(4, 2, 4, 2);
    setSpacing(8);
}

FlowLayout::~FlowLayout() {
    qDeleteAll(items_);
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.append(item);
}

int FlowLayout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return items_.value(index);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    return index >= 0 && index < count() ? items_.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const {
    return arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : items_) {
        size = size.expandedTo(item->minimumSize());
    }
    const QMargins margins = contentsMargins();
    size += QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
    // A long text must not widen the window: a line gives each widget at most its own width.
    return QSize(std::min(size.width(), narrowest), size.height());
}

QSize FlowLayout::sizeHint() const {
    return minimumSize();
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

int FlowLayout::arrange(const QRect& rect, bool move) const {
    const QRect area = rect.marginsRemoved(contentsMargins());
    int x = area.x();
    int y = area.y();
    QList<std::pair<QLayoutItem*, QRect>> line;
    int lineHeight = 0;
    const auto endLine = [&] {
        for (const auto& [item, place] : line) {
            if (move) {
                item->setGeometry(
                    QRect(place.x(), y + (lineHeight - place.height()) / 2, place.width(), place.height()));
            }
        }
        line.clear();
        y += lineHeight + spacing() / 2;
        x = area.x();
        lineHeight = 0;
    };
    for (QLayoutItem* item : items_) {
        if (item->isEmpty()) {
            continue;
        }
        const int width = std::min(item->sizeHint().width(), area.width());
        const int height = item->hasHeightForWidth() ? item->heightForWidth(width) : item->sizeHint().height();
        const bool startsLine = item->widget() != nullptr && item->widget() == lineStart_;
        if (x > area.x() && (startsLine || x + width > area.right() + 1)) {
            endLine();
        }
        line.append({item, QRect(x, 0, width, height)});
        x += width + spacing();
        lineHeight = std::max(lineHeight, height);
    }
    if (!line.isEmpty()) {
        endLine();
    }
    return y - spacing() / 2 + contentsMargins().bottom() - rect.y();
}
