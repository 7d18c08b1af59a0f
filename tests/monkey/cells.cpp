#include "tests/monkey/cells.h"

#include <algorithm>

std::string_view cellIn(const ItemTable& items, std::string_view record, int item) {
    return record.substr(static_cast<std::size_t>(items.itemStart[item] - 1),
                         static_cast<std::size_t>(items.itemWidth[item]));
}

Text valueIn(const CodePage& codePage, const ItemTable& items, std::string_view record, int item) {
    return trimmed(codePage.decode(cellIn(items, record, item)));
}

bool holdsHalves(const CodePage& codePage, const ItemTable& items, std::string_view record) {
    for (int item = 0; item <= items.itemCount; ++item) {
        const Text cell = codePage.decode(cellIn(items, record, item));
        if (std::any_of(cell.begin(), cell.end(), isCarriedByte)) {
            return true;
        }
    }
    return false;
}

std::optional<int> changedCell(const CodePage& codePage, const ItemTable& items, std::string_view old,
                               std::string_view now, const std::function<bool(int)>& mayDiffer) {
    if (holdsHalves(codePage, items, old) || holdsHalves(codePage, items, now)) {
        return std::nullopt;
    }
    for (int item = 0; item <= items.itemCount; ++item) {
        // By their texts: a character that has two codes may have got the other one.
        if (!mayDiffer(item) &&
            codePage.decode(cellIn(items, old, item)) != codePage.decode(cellIn(items, now, item))) {
            return item;
        }
    }
    return std::nullopt;
}
