#pragma once
// The painted parts of the standard view: the sheet's lines, the record numbers, the item header, the echo of the
// current cell, and the masks of a range. Each paints only what it is asked for, from the record window alone, and
// holds no data of the table. frmSHEET lays them out, moves them and tells them when to repaint.

#include "edit/forms/sheet_font.h"
#include "platform/screen.h"

#include <QWidget>

#include <optional>

/// The part of the sheet that is in view and the font it is drawn in; one for all pictures.
struct SheetPlace {
    SheetFont font;
    int left = 0; ///< pixels of the sheet hidden at the left
    int top = 0;  ///< pixels of the window's rows hidden above

    /// The cells from `firstRow` to `lastRow` and `firstItem` to `lastItem`, in pixels of the visible sheet.
    QRect cells(const ZORMOD& zormod, int firstRow, int lastRow, int firstItem, int lastItem) const;
    /// Upper edge of a window row (from 1).
    int rowTop(int row) const { return (row - 1) * font.rowHeight - top; }
};

/// What the pictures have in common.
class SheetPicture : public QWidget {
    Q_OBJECT
public:
    SheetPicture(const QString& name, const ZORMOD& zormod, const SheetPlace& place, QWidget* parent);

protected:
    /// Runs `draw` for each window row that touches `area`, with the row and its upper edge.
    template <typename Draw> void eachRow(const QRect& area, Draw draw) const;
    const ZORMOD& zormod_;
    const SheetPlace& place_;
};

/// `Picture1`: the records.
class SheetLines : public SheetPicture {
    Q_OBJECT
public:
    using SheetPicture::SheetPicture;
    /// Repaints one window row (from 1).
    void updateRow(int row);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// `Picture3`: the record numbers; the current one is marked.
class RecordNumbers : public SheetPicture {
    Q_OBJECT
public:
    using SheetPicture::SheetPicture;
    /// Width for the largest number in the window.
    int neededWidth() const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// `Picture4`: the names of the items above their cells; the current one is marked.
class ItemHeader : public SheetPicture {
    Q_OBJECT
public:
    using SheetPicture::SheetPicture;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// `Picture2`: the current cell, or what is being typed into it, black on pale yellow in a strong frame.
class EchoCell : public SheetPicture {
    Q_OBJECT
public:
    using SheetPicture::SheetPicture;
    static constexpr int frame = 3; ///< pixels around the cell

    /// Shows what is being typed instead of the cell; nothing: the stored cell.
    void setTyped(std::optional<Text> typed);
    /// Puts the echo over the current cell; hides it if that isn't in the window.
    void place();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<SheetGlyph> glyphs() const;
    std::optional<Text> typed_;
};

/// `LblMUSK`, `LblPMUSK`: a coloured rectangle over cells. Text on it is black in every palette.
class CellMask : public SheetPicture {
    Q_OBJECT
public:
    CellMask(const QString& name, const ZORMOD& zormod, const SheetPlace& place, QWidget* parent);
    /// Covers a range, as far as it is in the window, with `colour`.
    void cover(const CellRange& range, const QColor& colour);
    /// Takes the mask off.
    void uncover();
    /// Follows the sheet after a move or a scroll.
    void place();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<CellRange> range_;
    QColor colour_;
};
