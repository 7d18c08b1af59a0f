#pragma once
// Looks at a table made by hand, for the tests of the rules: what was seen before a key and after it, with an offence
// planted or without.

#include "sheet/item_file.h"
#include "tests/monkey/seen.h"

#include <algorithm>
#include <string>
#include <vector>

/// The code page of the tests.
inline const CodePage& testCodePage() {
    static const CodePage codePage;
    return codePage;
}

/// Items of these widths, aligned to the left.
inline ItemTable madeItems(const std::vector<int>& widths) {
    ItemTable items;
    items.itemCount = static_cast<std::int16_t>(widths.size() - 1);
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const auto item = static_cast<std::int64_t>(i);
        items.itemName[item] = u"項目" + Text(1, static_cast<char16_t>(u'a' + i));
        items.itemAlign[item] = u"L";
        items.itemWidth[item] = static_cast<std::int16_t>(widths[i]);
    }
    computeItemStart(items);
    return items;
}

/// 254 bytes: the cells one behind the other, filled up with blanks.
inline std::string madeRow(const ItemTable& items, const std::vector<std::string>& cells) {
    std::string row;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string cell = cells[i];
        cell.resize(static_cast<std::size_t>(items.itemWidth[static_cast<std::int64_t>(i)]), ' ');
        row += cell;
    }
    row.resize(dataLength, ' ');
    return row;
}

/// Puts the items, and the K file that they make, into a look.
inline void setItems(Seen& seen, const ItemTable& items) {
    seen.itemTable = items;
    seen.items = testCodePage().encode(itemFileText(items, items.itemCount, u"memo"));
}

/// Puts record `number` into a look; one more than there are lengthens the table.
inline void setRecord(Seen& seen, int number, const std::string& row, const std::string& end = "\r\n") {
    const auto at = static_cast<std::size_t>(number - 1) * recordLength;
    seen.records.resize(std::max(seen.records.size(), at + recordLength), ' ');
    seen.records.replace(at, recordLength, row + end);
}

/// The cells of record `number` of madeSeen.
inline std::vector<std::string> madeCells(int number) {
    const std::string digit(1, static_cast<char>('0' + number));
    return {"id" + digit, "name" + digit, "n" + digit, "text" + digit};
}

/// Moves the user to a cell. The row in the window is the one in the file, or a blank one.
inline void standOn(Seen& seen, int record, int item) {
    seen.position.curRecord = record;
    seen.position.curItem = static_cast<std::int16_t>(item);
    seen.row = record <= seen.recordCount() ? std::string(seen.record(record).substr(0, dataLength))
                                            : std::string(dataLength, ' ');
}

/// A table of five records and four items of 4, 6, 2 and 8 bytes; the user stands on item 1 of record 2, in the empty
/// input box.
inline Seen madeSeen() {
    Seen seen;
    seen.table = u"C:\\t.txt";
    setItems(seen, madeItems({4, 6, 2, 8}));
    for (int number = 1; number <= 5; ++number) {
        setRecord(seen, number, madeRow(seen.itemTable, madeCells(number)));
    }
    standOn(seen, 2, 1);
    seen.inInputBox = true;
    return seen;
}

/// Changes one cell of a record of the file.
inline void setCell(Seen& seen, int number, int item, std::string text) {
    std::string row(seen.record(number).substr(0, dataLength));
    const auto width = static_cast<std::size_t>(seen.itemTable.itemWidth[item]);
    text.resize(width, ' ');
    row.replace(static_cast<std::size_t>(seen.itemTable.itemStart[item] - 1), width, text);
    setRecord(seen, number, row);
}

/// Changes one cell of the row in the window.
inline void typeCell(Seen& seen, int item, std::string text) {
    const auto width = static_cast<std::size_t>(seen.itemTable.itemWidth[item]);
    text.resize(width, ' ');
    seen.row.replace(static_cast<std::size_t>(seen.itemTable.itemStart[item] - 1), width, text);
}
