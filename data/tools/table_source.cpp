#include "data/tools/table_source.h"

#include "platform/number_text.h"
#include "sheet/item_file.h"

namespace {

/// Bytes of a record that can hold data; CR and LF take the rest.
constexpr int dataBytes = recordLength - 2;

class TableReader {
public:
    explicit TableReader(const CodePage& codePage) : codePage_(codePage) {}

    void take(const Statement& statement) {
        if (statement.word == u"memo") {
            table_.memo = withoutComma(statement.field(0, 1), statement.line);
        } else if (statement.word == u"item") {
            addItem(statement.field(0, 3), statement.field(1, 3), statement.number(2, 3, 1, dataBytes), statement.line);
        } else if (statement.word == u"items") {
            const int count = statement.number(0, 4, 1, highestItem);
            for (int number = 1; number <= count; ++number) {
                addItem(statement.field(1, 4) + plainNumber(number), statement.field(2, 4),
                        statement.number(3, 4, 1, dataBytes), statement.line);
            }
        } else if (statement.word == u"record") {
            addRecord(statement);
        } else {
            throw SourceError{statement.line, u"unknown word " + statement.word};
        }
    }

    TableSource finish() {
        if (itemsRead_ == 0) {
            throw SourceError{0, u"no item"};
        }
        return std::move(table_);
    }

private:
    /// Nothing in an item definition file can hold a comma.
    static Text withoutComma(const Text& text, std::size_t line) {
        if (contains(text, u",")) {
            throw SourceError{line, u"a comma in " + text};
        }
        return text;
    }

    void addItem(const Text& name, const Text& align, int width, std::size_t line) {
        if (!table_.records.empty()) {
            throw SourceError{line, u"an item after the first record"};
        }
        if (name.empty() || (align != u"L" && align != u"R")) {
            throw SourceError{line, u"an item needs a name and L or R"};
        }
        if (itemsRead_ > highestItem || bytesUsed_ + width > dataBytes) {
            throw SourceError{line, u"more than a record holds"};
        }
        table_.items.itemCount = static_cast<std::int16_t>(itemsRead_);
        table_.items.itemName[itemsRead_] = withoutComma(name, line);
        table_.items.itemAlign[itemsRead_] = align;
        table_.items.itemWidth[itemsRead_] = static_cast<std::int16_t>(width);
        computeItemStart(table_.items);
        bytesUsed_ += width;
        ++itemsRead_;
    }

    void addRecord(const Statement& statement) {
        Bytes record;
        for (int i = 0; i < itemsRead_; ++i) {
            const Bytes cell =
                codePage_.encode(statement.field(static_cast<std::size_t>(i), static_cast<std::size_t>(itemsRead_)));
            const auto width = static_cast<std::size_t>(table_.items.itemWidth[i]);
            if (cell.size() > width) {
                throw SourceError{statement.line, u"the cell of " + table_.items.itemName[i] + u" is too long"};
            }
            const Bytes blanks(width - cell.size(), ' ');
            record += table_.items.itemAlign[i] == u"R" ? blanks + cell : cell + blanks;
        }
        record.resize(dataBytes, ' ');
        table_.records += record + "\r\n";
    }

    const CodePage& codePage_;
    TableSource table_;
    int itemsRead_ = 0;
    int bytesUsed_ = 0;
};

} // namespace

int TableSource::itemNamed(const Text& name, std::size_t line) const {
    for (int i = 0; i <= items.itemCount; ++i) {
        if (items.itemName[i] == name) {
            return i;
        }
    }
    throw SourceError{line, u"no item " + name};
}

TableSource readTableSource(const CodePage& codePage, BytesView utf8) {
    TableReader reader(codePage);
    for (const Statement& statement : statements(codePage, utf8)) {
        reader.take(statement);
    }
    return reader.finish();
}

Bytes itemFileOf(const CodePage& codePage, const TableSource& table) {
    return codePage.encode(itemFileText(table.items, table.items.itemCount, table.memo));
}
