#include "edit/sheet_rows.h"

#include "sheet/record_window.h"

#include <algorithm>

namespace {

/// With fewer rows the current record would stand in the first one, and Up, which never leaves the window, could not move.
constexpr int fewestRows = 4;
constexpr int mostRows = 100;

bool rowIsShown(const ZORMOD& zormod, std::int64_t row) {
    return row >= 1 && row <= shownRows(zormod);
}

std::int16_t lastItem(const ZORMOD& zormod) {
    return std::clamp<std::int16_t>(zormod.items.itemCount, 0, highestItem);
}

/// The data bytes of a row that is shown.
BytesView rowBytes(const ZORMOD& zormod, std::int64_t row) {
    return BytesView(zormod.window.recordWindow[rowSlot(row)]).substr(0, dataLength);
}

bool onlySlashes(BytesView bytes) {
    return !bytes.empty() && bytes.find_first_not_of('/') == BytesView::npos;
}

/// For each column, whether it lies in a cell that shows nothing because it holds "/" only.
std::vector<bool> slashColumns(const ZORMOD& zormod, BytesView bytes) {
    std::vector<bool> slashes(bytes.size(), false);
    const auto mark = [&](std::size_t from, std::size_t count) {
        if (from < bytes.size() && onlySlashes(bytes.substr(from, count))) {
            const std::size_t end = std::min(bytes.size(), from + std::min(count, bytes.size()));
            std::fill(slashes.begin() + static_cast<std::ptrdiff_t>(from),
                      slashes.begin() + static_cast<std::ptrdiff_t>(end), true);
        }
    };
    for (std::int16_t item = 0; item <= lastItem(zormod); ++item) {
        mark(static_cast<std::size_t>(itemColumn(zormod, item)), static_cast<std::size_t>(itemColumns(zormod, item)));
    }
    mark(static_cast<std::size_t>(sheetColumns(zormod)), dataLength);
    return slashes;
}

bool isPrintable(char16_t unit) {
    return unit >= u' ' && unit != 0x7F && !isCarriedByte(unit);
}

} // namespace

std::vector<SheetGlyph> textGlyphs(const CodePage& codePage, TextView text, int column, int columns) {
    std::vector<SheetGlyph> glyphs;
    const int end = column + columns;
    for (const char16_t unit : text) {
        const int width = codePage.bytesOf(unit);
        if (column + width > end) {
            break;
        }
        if (unit != u' ' && unit != u'　') {
            glyphs.push_back({unit, column, width, isPrintable(unit)});
        }
        column += width;
    }
    return glyphs;
}

std::vector<SheetGlyph> rowGlyphs(const ZORMOD& zormod, std::int64_t row) {
    if (!rowIsShown(zormod, row)) {
        return {};
    }
    const CodePage& codePage = zormod.platform.codePage;
    const BytesView bytes = rowBytes(zormod, row);
    std::vector<SheetGlyph> glyphs = textGlyphs(codePage, codePage.decode(bytes), 0, dataLength);
    const std::vector<bool> slashes = slashColumns(zormod, bytes);
    std::erase_if(glyphs, [&](const SheetGlyph& glyph) {
        return glyph.unit == u'/' && slashes[static_cast<std::size_t>(glyph.column)];
    });
    return glyphs;
}

bool itemHasPlace(const ZORMOD& zormod, std::int64_t item) {
    return item >= 0 && item <= lastItem(zormod) && zormod.items.itemStart[item] >= 1 &&
           zormod.items.itemWidth[item] >= 0;
}

int itemColumn(const ZORMOD& zormod, std::int64_t item) {
    return itemHasPlace(zormod, item) ? zormod.items.itemStart[item] - 1 : 0;
}

int itemColumns(const ZORMOD& zormod, std::int64_t item) {
    return itemHasPlace(zormod, item) ? zormod.items.itemWidth[item] : 0;
}

int sheetColumns(const ZORMOD& zormod) {
    const std::int16_t last = lastItem(zormod);
    return itemColumn(zormod, last) + itemColumns(zormod, last);
}

std::vector<HeaderCell> headerCells(const ZORMOD& zormod) {
    std::vector<HeaderCell> cells;
    for (std::int16_t item = 0; item <= lastItem(zormod); ++item) {
        if (itemHasPlace(zormod, item)) {
            cells.push_back({item, itemColumn(zormod, item), itemColumns(zormod, item), zormod.items.itemName[item]});
        }
    }
    return cells;
}

int shownRows(const ZORMOD& zormod) {
    return std::clamp<int>(zormod.position.windowRows, 1, mostRows);
}

std::int32_t recordOfRow(const ZORMOD& zormod, std::int64_t row) {
    return static_cast<std::int32_t>(zormod.position.windowFirst + row - 1);
}

int currentRow(const ZORMOD& zormod) {
    const std::int64_t row = currentSlot(zormod) - 1;
    return rowIsShown(zormod, row) ? static_cast<int>(row) : 0;
}

std::int16_t itemAtColumn(const ZORMOD& zormod, int column) {
    std::int16_t item = 0;
    while (item < lastItem(zormod) && itemColumn(zormod, item + 1) <= column) {
        ++item;
    }
    return item;
}

int rowAtHeight(const ZORMOD& zormod, int y, int rowHeight) {
    if (y < 0 || rowHeight < 1) {
        return 0;
    }
    const int row = y / rowHeight + 1;
    return rowIsShown(zormod, row) ? row : 0;
}

Text viewCell(const ZORMOD& zormod, std::int64_t row, std::int64_t item) {
    if (!rowIsShown(zormod, row) || !itemHasPlace(zormod, item)) {
        return {};
    }
    const auto from = static_cast<std::size_t>(itemColumn(zormod, item));
    const BytesView bytes = rowBytes(zormod, row);
    const BytesView cell =
        from < bytes.size() ? bytes.substr(from, static_cast<std::size_t>(itemColumns(zormod, item))) : BytesView();
    return onlySlashes(cell) ? Text() : trimmed(zormod.platform.codePage.decode(cell));
}

std::int16_t rowsThatFit(int height, int rowHeight) {
    return static_cast<std::int16_t>(std::clamp(rowHeight < 1 ? fewestRows : height / rowHeight, fewestRows, mostRows));
}
