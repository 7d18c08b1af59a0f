#pragma once
// When a view moves or is rebuilt: which items the card view shows, and whether the grid view's columns still fit the
// table. Pure rules; the card and grid views ask them at each redraw.

#include "sheet/zormod.h"

#include <vector>

/// Items that the card view moves by.
inline constexpr int cardRows = 11;

/// First item that the card view shows when `item` of a table with `itemCount` items is current and `top` was first
/// before. While the item stays within `cardRows` rows nothing moves; otherwise the top goes by `cardRows`, near the
/// end it stays at `itemCount` - 17.
int cardTop(int top, int item, int itemCount);

/// What the grid's rows and columns are made from.
struct GridShape {
    int itemCount = -1;
    int rows = 0;
    std::int32_t records = 0;
    std::vector<std::int16_t> widths;
    std::vector<Text> names;
    /// The grid is rebuilt only if its shape differs from that of the last draw.
    bool operator==(const GridShape&) const = default;
};

/// The shape for the open table with `records` records.
GridShape gridShape(const ZORMOD& zormod, std::int32_t records);
