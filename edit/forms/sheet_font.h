#pragma once
// The font of the sheet and how it is put on the screen. Every character is drawn at its own column, so bytes, names
// and masks stand exactly above each other at every size, whatever the font says of its widths. Called by the views'
// paint handlers: nothing here throws or reads a file.

#include "edit/sheet_rows.h"

#include <QFont>

class QColor;
class QPainter;
class QPoint;
class QWidget;

/// The font with its measures in pixels.
struct SheetFont {
    QFont font;
    int unit = 1;      ///< width of a column
    int rowHeight = 1; ///< height of a row with its gap
    int ascent = 0;    ///< from a row's top to the base line
};

/// The font whose letters are `pixels` high; an even number.
SheetFont sheetFont(int pixels);

/// The size of the fixed ones that suits the letters of `widget`.
int startSize(const QWidget& widget);

/// Draws a row's characters in `colour`; column 0 stands at `origin`, the row's upper left corner.
void drawGlyphs(QPainter& painter, const SheetFont& font, const std::vector<SheetGlyph>& glyphs, QPoint origin,
                const QColor& colour);
