#pragma once
// What the views show, as characters with their places: rows of the record window, the item header, the record numbers,
// and the way back from a point to a row and an item. The views ask here while they paint, so nothing in this file
// reads the data file, changes the state or throws; a row or item that doesn't exist is simply empty.
//
// A place is a column: a half-width place from 0 at the record's first byte. Each byte of a record takes exactly one
// column, so a double-byte character takes two and every item starts below its name at every size of the font.

#include "platform/code_page.h"
#include "sheet/zormod.h"

#include <vector>

/// A character of a row and where it stands.
struct SheetGlyph {
    char16_t unit = u' ';
    int column = 0;
    int columns = 1;       ///< 1 half-width, 2 full-width
    bool printable = true; ///< false: a byte that forms no character, or a control character; drawn as an empty box
    bool operator==(const SheetGlyph&) const = default;
};

/// An item's place in the sheet and its name.
struct HeaderCell {
    std::int16_t item = 0;
    int column = 0;
    int columns = 0;
    Text name;
    bool operator==(const HeaderCell&) const = default;
};

/// The characters of `text` from `column` on, cut before the first one that would pass `columns` columns.
std::vector<SheetGlyph> textGlyphs(const CodePage& codePage, TextView text, int column, int columns);

/// The characters of window row `row` (from 1): the record as it stands, cells of "/" only left out, and likewise what
/// stands behind the last item. Blanks are not listed. A row outside the window is empty.
std::vector<SheetGlyph> rowGlyphs(const ZORMOD& zormod, std::int64_t row);

/// True if `item` is one of the open table's and has a place in the record.
bool itemHasPlace(const ZORMOD& zormod, std::int64_t item);
/// First column of an item, 0 for an item without a place.
int itemColumn(const ZORMOD& zormod, std::int64_t item);
/// Columns of an item, 0 for an item without a place.
int itemColumns(const ZORMOD& zormod, std::int64_t item);
/// Columns of all items together.
int sheetColumns(const ZORMOD& zormod);
/// The item header from item 0.
std::vector<HeaderCell> headerCells(const ZORMOD& zormod);

/// Rows of the window, 1 to 100.
int shownRows(const ZORMOD& zormod);
/// The record that window row `row` (from 1) shows.
std::int32_t recordOfRow(const ZORMOD& zormod, std::int64_t row);
/// The window row (from 1) of the current record, 0 if it isn't in the window.
int currentRow(const ZORMOD& zormod);

/// The item under a column: the one before the first item that starts further right. Left of the sheet item 0, right
/// of it the last item.
std::int16_t itemAtColumn(const ZORMOD& zormod, int column);
/// The window row (from 1) under `y`, 0 outside the rows. `y` and `rowHeight` count the same units.
int rowAtHeight(const ZORMOD& zormod, int y, int rowHeight);

/// Text of a cell for the views: trimmed, "/" cells empty. Empty outside the window or the table.
Text viewCell(const ZORMOD& zormod, std::int64_t row, std::int64_t item);

/// Rows that a view of `height` has room for, at least 4 and at most 100. A view too low for four scrolls.
std::int16_t rowsThatFit(int height, int rowHeight);
