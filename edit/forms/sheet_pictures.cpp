#include "edit/forms/sheet_pictures.h"

#include "platform/number_text.h"
#include "platform/qt/qt_text.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace {

const QColor echoColour(0xFF, 0xFF, 0xC0);
constexpr int numberMargin = 6;

/// A line between cells: seen, but fainter than the letters, in light and dark palettes.
QColor lineColour(const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor ink = palette.color(QPalette::Text);
    const auto mix = [](int a, int b) { return (a * 3 + b) / 4; };
    return QColor(mix(ground.red(), ink.red()), mix(ground.green(), ink.green()), mix(ground.blue(), ink.blue()));
}

} // namespace

QRect SheetPlace::cells(const ZORMOD& zormod, int firstRow, int lastRow, int firstItem, int lastItem) const {
    const int from = itemColumn(zormod, firstItem);
    const int to = itemColumn(zormod, lastItem) + itemColumns(zormod, lastItem);
    return QRect(from * font.unit - left, rowTop(firstRow), std::max(1, (to - from) * font.unit),
                 (lastRow - firstRow + 1) * font.rowHeight);
}

SheetPicture::SheetPicture(const QString& name, const ZORMOD& zormod, const SheetPlace& place, QWidget* parent)
    : QWidget(parent), zormod_(zormod), place_(place) {
    setObjectName(name);
}

template <typename Draw> void SheetPicture::eachRow(const QRect& area, Draw draw) const {
    for (int row = 1; row <= shownRows(zormod_); ++row) {
        const int top = place_.rowTop(row);
        if (top <= area.bottom() && top + place_.font.rowHeight > area.top()) {
            draw(row, top);
        }
    }
}

void SheetLines::updateRow(int row) {
    update(0, place_.rowTop(row), width(), place_.font.rowHeight);
}

void SheetLines::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().base());
    const QColor line = lineColour(palette());
    for (const HeaderCell& cell : headerCells(zormod_)) {
        const int edge = (cell.column + cell.columns) * place_.font.unit - place_.left;
        painter.fillRect(edge - 1, event->rect().top(), 1, event->rect().height(), line);
    }
    eachRow(event->rect(), [&](int row, int top) {
        painter.fillRect(event->rect().left(), top + place_.font.rowHeight - 1, event->rect().width(), 1, line);
        drawGlyphs(painter, place_.font, rowGlyphs(zormod_, row), QPoint(-place_.left, top),
                   palette().color(QPalette::Text));
    });
}

int RecordNumbers::neededWidth() const {
    const Text last = plainNumber(recordOfRow(zormod_, shownRows(zormod_)));
    return static_cast<int>(std::max<std::size_t>(last.size(), 3)) * place_.font.unit + 2 * numberMargin;
}

void RecordNumbers::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().window());
    painter.setFont(place_.font.font);
    eachRow(event->rect(), [&](int row, int top) {
        const bool current = row == currentRow(zormod_);
        const QRect cell(0, top, width(), place_.font.rowHeight);
        if (current) {
            painter.fillRect(cell, palette().highlight());
        }
        painter.setPen(palette().color(current ? QPalette::HighlightedText : QPalette::WindowText));
        painter.drawText(cell.adjusted(0, 0, -numberMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                         toQt(plainNumber(recordOfRow(zormod_, row))));
    });
}

void ItemHeader::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().window());
    const QColor line = lineColour(palette());
    for (const HeaderCell& cell : headerCells(zormod_)) {
        const QRect place(cell.column * place_.font.unit - place_.left, 0, cell.columns * place_.font.unit, height());
        if (!place.intersects(event->rect())) {
            continue;
        }
        const bool current = cell.item == zormod_.position.curItem;
        if (current) {
            painter.fillRect(place, palette().highlight());
        }
        painter.fillRect(place.right(), 0, 1, height(), line);
        drawGlyphs(painter, place_.font, textGlyphs(zormod_.platform.codePage, cell.name, 0, cell.columns),
                   place.topLeft(), palette().color(current ? QPalette::HighlightedText : QPalette::WindowText));
    }
}

void EchoCell::setTyped(std::optional<Text> typed) {
    typed_ = std::move(typed);
    update();
}

void EchoCell::place() {
    const int row = currentRow(zormod_);
    const std::int16_t item = zormod_.position.curItem;
    setVisible(row != 0 && itemHasPlace(zormod_, item));
    setGeometry(place_.cells(zormod_, row, row, item, item).adjusted(-frame, -frame, frame, frame));
    raise();
}

std::vector<SheetGlyph> EchoCell::glyphs() const {
    const std::int16_t item = zormod_.position.curItem;
    if (typed_) {
        return textGlyphs(zormod_.platform.codePage, *typed_, itemColumn(zormod_, item), dataLength);
    }
    return rowGlyphs(zormod_, currentRow(zormod_));
}

void EchoCell::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event)
    QPainter painter(this);
    // Two rings, so that the frame stands out against black and against white ground.
    painter.fillRect(rect(), palette().color(QPalette::Text));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), Qt::black);
    const QRect cell = rect().adjusted(frame, frame, -frame, -frame);
    painter.fillRect(cell, echoColour);
    painter.setClipRect(cell);
    const int column = itemColumn(zormod_, zormod_.position.curItem);
    drawGlyphs(painter, place_.font, glyphs(), cell.topLeft() - QPoint(column * place_.font.unit, 0), Qt::black);
}

CellMask::CellMask(const QString& name, const ZORMOD& zormod, const SheetPlace& place, QWidget* parent)
    : SheetPicture(name, zormod, place, parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void CellMask::cover(const CellRange& range, const QColor& colour) {
    range_ = range;
    colour_ = colour;
    place();
}

void CellMask::uncover() {
    range_.reset();
    hide();
}

void CellMask::place() {
    if (!range_) {
        return;
    }
    const std::int32_t first = zormod_.position.windowFirst;
    const int firstRow = std::max(1, range_->firstRecord - first + 1);
    const int lastRow = std::min(shownRows(zormod_), range_->lastRecord - first + 1);
    setVisible(firstRow <= lastRow);
    setGeometry(place_.cells(zormod_, firstRow, lastRow, range_->firstItem, range_->lastItem));
    update();
}

void CellMask::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (!range_) {
        return;
    }
    painter.fillRect(event->rect(), colour_);
    // The mask draws the cells anew: the sheet's own letters may be white.
    const QRect area = event->rect().translated(pos());
    eachRow(area, [&](int row, int top) {
        drawGlyphs(painter, place_.font, rowGlyphs(zormod_, row), QPoint(-place_.left, top) - pos(), Qt::black);
    });
}
