#include "tests/monkey/row_rules.h"

#include "tests/monkey/random_table.h"

#include <sstream>

namespace {

template <typename... Parts> Complaint complaint(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

/// `row` with other bytes in the cell; behind the last item nothing is carried over.
Bytes withCell(const CodePage& codePage, const Seen& table, std::string_view row, std::string_view cell) {
    const std::int16_t item = table.position.curItem;
    const auto start = static_cast<std::size_t>(table.itemTable.itemStart[item] - 1);
    Bytes made(row.substr(0, start));
    made += cell;
    if (item != table.itemTable.itemCount) {
        made += row.substr(start + cell.size());
    }
    made.resize(dataLength, ' ');
    made = canonical(codePage, made);
    made.resize(dataLength, ' ');
    return made;
}

std::string_view cellIn(const Seen& table, std::string_view row) {
    const std::int16_t item = table.position.curItem;
    return row.substr(static_cast<std::size_t>(table.itemTable.itemStart[item] - 1),
                      static_cast<std::size_t>(table.itemTable.itemWidth[item]));
}

/// True if `row` comes about when another byte than the one at `edge` was put into the cell: with half a character
/// beside it, it has become a character that has two codes, and is written in the other one.
bool meetsItsNeighbour(const CodePage& codePage, const Seen& table, std::string_view old, std::string_view row,
                       std::size_t edge) {
    Bytes cell(cellIn(table, row));
    for (int byte = 0; byte < 256; ++byte) {
        cell[edge] = static_cast<char>(byte);
        if (withCell(codePage, table, old, cell) == row) {
            return true;
        }
    }
    return false;
}

/// True if `row` is `old`, or differs in the current cell alone.
bool differsInCellOnly(const CodePage& codePage, const Seen& table, std::string_view old, std::string_view row) {
    const std::string_view cell = cellIn(table, row);
    return old == row || withCell(codePage, table, old, cell) == row ||
           meetsItsNeighbour(codePage, table, old, row, 0) ||
           meetsItsNeighbour(codePage, table, old, row, cell.size() - 1);
}

/// The row that the user was in must have become `wanted`, on the disk or, if the user is still there, in the window.
/// What is blank behind the last record is never written.
Complaint rowBecame(const Seen& before, const Seen& after, const Bytes& wanted, const char* what) {
    const int record = before.position.curRecord;
    const bool isHere = after.position.curRecord == record;
    const std::string_view found = isHere                          ? std::string_view(after.row)
                                   : record <= after.recordCount() ? after.record(record).substr(0, dataLength)
                                                                   : std::string_view(wanted);
    if (found == wanted) {
        return std::nullopt;
    }
    return complaint(what, " at record ", record, ", item ", before.position.curItem, " made ", readable(found),
                     " instead of ", readable(wanted));
}

Bytes aligned(const CodePage& codePage, const Seen& table, const Text& text) {
    const std::int16_t item = table.position.curItem;
    const auto width = static_cast<std::size_t>(table.itemTable.itemWidth[item]);
    Bytes bytes = codePage.encode(text);
    if (table.itemTable.itemAlign[item] != u"R") {
        bytes.resize(width, ' ');
        return bytes;
    }
    return bytes.size() < width ? Bytes(width - bytes.size(), ' ') + bytes : bytes.substr(bytes.size() - width);
}

} // namespace

Complaint onlyTheRowWasSaved(const CodePage& codePage, const Seen& before, const std::string& now) {
    const auto old = before.records.size();
    const int current = before.position.curRecord;
    const bool isNew = current == before.recordCount() + 1;
    if (now.size() != old && !(isNew && now.size() == old + recordLength)) {
        return complaint("records: ", old / recordLength, " became ", now.size() / recordLength,
                         " while the user stood at ", current);
    }
    const std::string_view view(now);
    for (std::size_t at = 0; at < now.size(); at += recordLength) {
        const std::string_view record = view.substr(at, recordLength);
        const auto number = static_cast<int>(at / recordLength) + 1;
        if (at < old && record == before.record(number)) {
            continue;
        }
        if (number != current) {
            return complaint("another row: record ", number, " changed while the user stood at ", current);
        }
        if (record.substr(dataLength) != "\r\n") {
            return complaint("line end: record ", number, " ends in ", readable(record.substr(dataLength)));
        }
        if (!differsInCellOnly(codePage, before, before.row, record.substr(0, dataLength))) {
            return complaint("another cell: record ", number, ", item ", before.position.curItem, ": ",
                             readable(before.row), " became ", readable(record));
        }
    }
    return std::nullopt;
}

Complaint onlyTheCellWasTyped(const CodePage& codePage, const Seen& before, const Seen& after, bool mayChangeRow) {
    if (before.table != after.table || before.position.curRecord != after.position.curRecord ||
        before.row == after.row) {
        return std::nullopt;
    }
    if (!mayChangeRow && before.boxText.empty()) {
        return complaint("cell without typing: record ", before.position.curRecord, ": ", readable(before.row),
                         " became ", readable(after.row));
    }
    if (!differsInCellOnly(codePage, before, before.row, after.row)) {
        return complaint("another cell in the window: item ", before.position.curItem, ": ", readable(before.row),
                         " became ", readable(after.row));
    }
    return std::nullopt;
}

Complaint enterPutsTheTextIn(const CodePage& codePage, const Seen& before, const Seen& after, const MonkeyKey& key) {
    const bool isEnter = key.kind == MonkeyKey::Kind::press && key.stroke == plainKey(Key::enter);
    if (!isEnter || !before.inInputBox || before.isComposing || before.selection.selectionKind != 0 ||
        !before.taskWord.empty() || before.table.empty() || before.table != after.table) {
        return std::nullopt;
    }
    const Bytes wanted = before.boxText.empty()
                             ? before.row
                             : withCell(codePage, before, before.row, aligned(codePage, before, before.boxText));
    return rowBecame(before, after, wanted, "typed text: Enter");
}

Complaint blankPutIn(const CodePage& codePage, const Seen& before, const Seen& after) {
    if (before.isComposing) {
        return std::nullopt;
    }
    const auto width = static_cast<std::size_t>(before.itemTable.itemWidth[before.position.curItem]);
    return rowBecame(before, after, withCell(codePage, before, before.row, Bytes(width, ' ')), "blank cell: Ctrl+D");
}

Seen withRowSaved(const CodePage& codePage, Seen before) {
    if (!before.boxIsEmpty) {
        before.row = withCell(codePage, before, before.row, aligned(codePage, before, before.boxText));
    }
    const auto at = static_cast<std::size_t>(before.position.curRecord - 1) * recordLength;
    const Bytes blank(dataLength, ' ');
    if (at < before.records.size() || (at == before.records.size() && before.row != blank)) {
        before.records.resize(std::max(before.records.size(), at + recordLength), ' ');
        before.records.replace(at, recordLength, before.row + "\r\n");
    }
    return before;
}

std::string readable(std::string_view bytes) {
    std::ostringstream text;
    for (const char byte : bytes) {
        text << (byte > ' ' && byte < 0x7F ? std::string(1, byte)
                                           : "\\" + std::to_string(static_cast<unsigned char>(byte)));
    }
    return text.str();
}
