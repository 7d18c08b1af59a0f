#include "edit/view_rules.h"

#include "edit/sheet_rows.h"

#include <algorithm>

int cardTop(int top, int item, int itemCount) {
    constexpr int rowsAtTheEnd = 17;
    top = std::max(0, top);
    while (item >= top + cardRows) {
        top += cardRows;
    }
    while (item < top) {
        top = std::max(0, top - cardRows);
    }
    return std::clamp(top, 0, std::max(0, itemCount - rowsAtTheEnd));
}

GridShape gridShape(const ZORMOD& zormod, std::int32_t records) {
    GridShape shape;
    shape.itemCount = zormod.items.itemCount;
    shape.rows = shownRows(zormod);
    shape.records = records;
    for (std::int64_t item = 0; itemHasPlace(zormod, item); ++item) {
        shape.widths.push_back(zormod.items.itemWidth[item]);
        shape.names.push_back(zormod.items.itemName[item]);
    }
    return shape;
}
