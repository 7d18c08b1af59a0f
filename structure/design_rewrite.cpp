#include "structure/design_rewrite.h"

#include "platform/code_page.h"
#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "structure/design_checks.h"

namespace {

/// The bytes of an old cell, trimmed as text: half a character at its edge stays what it is.
Bytes oldValue(const CodePage& codePage, BytesView record, const ItemTable& old, std::int16_t item) {
    const auto from = static_cast<std::size_t>(old.itemStart[item] - 1);
    if (from >= record.size()) {
        return {};
    }
    const auto width = static_cast<std::size_t>(old.itemWidth[item]);
    return codePage.encode(trimmed(codePage.decode(record.substr(from, width))));
}

} // namespace

bool cutsDiffer(const ItemTable& old, const std::vector<DesignRow>& rows) {
    for (std::int16_t item = 1; item <= old.itemCount; ++item) {
        if (static_cast<std::size_t>(item) >= rows.size()) {
            return true;
        }
        const DesignRow& row = rows[static_cast<std::size_t>(item)];
        if (row.align != old.itemAlign[item] || designWidth(row) != old.itemWidth[item]) {
            return true;
        }
    }
    return false;
}

Bytes rewrittenRecord(const CodePage& codePage, BytesView record, const ItemTable& old, const ItemTable& made) {
    Bytes row;
    for (std::int16_t item = 0; item <= made.itemCount; ++item) {
        const bool hadCell = item <= old.itemCount && old.itemWidth[item] != 0;
        appendAligned(row, hadCell ? oldValue(codePage, record, old, item) : Bytes(),
                      static_cast<std::size_t>(made.itemWidth[item]), made.itemAlign[item] == u"R");
    }
    return endedRecord(row);
}

ItemTable itemsOf(const std::vector<DesignRow>& rows, const ItemTable& old) {
    ItemTable items;
    items.itemCount = static_cast<std::int16_t>(rows.size() - 1);
    for (std::int16_t item = 0; item <= items.itemCount; ++item) {
        const DesignRow& row = rows[static_cast<std::size_t>(item)];
        items.itemName[item] = row.name;
        items.itemAlign[item] = row.align;
        items.itemWidth[item] = designWidth(row);
        items.itemWidthAsRead[item] = designWidth(row);
        items.itemInputMark[item] = old.itemInputMark[item];
    }
    computeItemStart(items);
    return items;
}
