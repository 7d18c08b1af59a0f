#include "tests/monkey/shift_rules.h"

#include "tests/monkey/cells.h"

#include <vector>

namespace {

/// The values of the row's items behind the shift; nothing if one of them doesn't fit into its new cell.
std::optional<std::vector<Text>> shiftedValues(const CodePage& codePage, const Seen& before, Shift shift) {
    const ItemTable& items = before.itemTable;
    const int current = before.position.curItem;
    const int blank = shift == Shift::right ? current : items.itemCount;
    std::vector<Text> values;
    for (int item = 0; item <= items.itemCount; ++item) {
        const int from = item < current ? item : shift == Shift::right ? item - 1 : item + 1;
        values.push_back(item == blank ? Text() : valueIn(codePage, items, before.row, from));
        if (codePage.byteLength(values.back()) > static_cast<std::size_t>(items.itemWidth[item])) {
            return std::nullopt;
        }
    }
    return values;
}

} // namespace

Complaint cellsShifted(const CodePage& codePage, const Seen& before, const Seen& now, Shift shift) {
    if (before.records != now.records) {
        return "shift: the file has changed";
    }
    if (before.position.curRecord != now.position.curRecord || before.position.curItem != now.position.curItem) {
        return "shift: the user stands elsewhere";
    }
    const int current = before.position.curItem;
    const auto isShifted = [current](int item) { return item >= current; };
    if (const auto item = changedCell(codePage, before.itemTable, before.row, now.row, isShifted)) {
        return "shift: item " + std::to_string(*item) + ", ahead of the current one, has changed";
    }
    const auto values = shiftedValues(codePage, before, shift);
    if (!values || holdsHalves(codePage, before.itemTable, before.row)) {
        return std::nullopt;
    }
    for (int item = current; item <= before.itemTable.itemCount; ++item) {
        if (valueIn(codePage, now.itemTable, now.row, item) != (*values)[static_cast<std::size_t>(item)]) {
            return "shift: item " + std::to_string(item) + " made " + readable(cellIn(now.itemTable, now.row, item)) +
                   " of " + readable(before.row);
        }
    }
    return std::nullopt;
}
