#include "edit/forms/sheet_font.h"

#include "edit/font_sizes.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QRawFont>
#include <QWidget>

#include <cmath>

namespace {

/// An empty box that fills the columns of a byte that forms no character.
void drawBox(QPainter& painter, const SheetFont& font, QPoint corner, int columns) {
    painter.drawRect(corner.x() + 1, corner.y() + 3, columns * font.unit - 3, font.rowHeight - 7);
}

} // namespace

SheetFont sheetFont(int pixels) {
    SheetFont sheet;
    sheet.font = QFont(QStringLiteral("IPAGothic"));
    sheet.font.setPixelSize(pixels);
    sheet.font.setKerning(false);
    const QFontMetricsF metrics(sheet.font);
    sheet.unit = std::max(1, static_cast<int>(std::ceil(metrics.horizontalAdvance(QStringLiteral("0123456789")) / 10)));
    sheet.rowHeight = static_cast<int>(std::ceil(metrics.height())) + 4;
    sheet.ascent = static_cast<int>(std::ceil(metrics.ascent())) + 2;
    return sheet;
}

int startSize(const QWidget& widget) {
    return firstFontSize(QFontInfo(widget.font()).pixelSize());
}

void drawGlyphs(QPainter& painter, const SheetFont& font, const std::vector<SheetGlyph>& glyphs, QPoint origin,
                const QColor& colour) {
    painter.setFont(font.font);
    painter.setPen(colour);
    painter.setBrush(Qt::NoBrush);
    // One run for the whole row, with a place for each character: as exact as drawing them singly, and much faster.
    const QRawFont raw = QRawFont::fromFont(font.font);
    QList<quint32> indexes;
    QList<QPointF> positions;
    for (const SheetGlyph& glyph : glyphs) {
        const QPoint corner = origin + QPoint(glyph.column * font.unit, 0);
        if (!glyph.printable) {
            drawBox(painter, font, corner, glyph.columns);
            continue;
        }
        const QPoint base = corner + QPoint(0, font.ascent);
        const QString character(QChar(glyph.unit));
        const QList<quint32> index = raw.glyphIndexesForString(character);
        if (index.size() == 1 && index.front() != 0) {
            indexes.append(index.front());
            positions.append(base);
        } else {
            painter.drawText(base, character);
        }
    }
    QGlyphRun run;
    run.setRawFont(raw);
    run.setGlyphIndexes(indexes);
    run.setPositions(positions);
    painter.drawGlyphRun(QPointF(), run);
}
