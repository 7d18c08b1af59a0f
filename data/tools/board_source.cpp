#include "data/tools/board_source.h"

#include "platform/number_text.h"

#include <map>
#include <set>

namespace {

const Text& plainValue(const Text& value, std::size_t line) {
    if (value.empty() || value.find_first_of(u",\"") != Text::npos) {
        throw SourceError{line, u"a value is empty or holds a comma or a quotation mark"};
    }
    return value;
}

} // namespace

Bytes boardFileOf(const CodePage& codePage, const TableSource& table, BytesView utf8) {
    constexpr int mostPoints = 1000;
    std::map<Text, Text> head;
    std::set<int> resultItems;
    Text questions;
    for (const Statement& statement : statements(codePage, utf8)) {
        const std::size_t line = statement.line;
        if (statement.word == u"question") {
            const int item = table.itemNamed(statement.field(0, 3), line);
            if (resultItems.contains(item)) {
                throw SourceError{line, u"a question in an item for results"};
            }
            const int points = statement.number(2, 3, -mostPoints, mostPoints);
            questions += plainNumber(item) + u"\r\n" + plainValue(statement.field(1, 3), line) + u"\r\n" +
                         plainNumber(points) + u"\r\n";
        } else if (statement.word == u"board") {
            head[u"board"] = plainValue(statement.field(0, 1), line);
        } else {
            const int item = table.itemNamed(statement.field(0, 1), line);
            if (!resultItems.insert(item).second) {
                throw SourceError{line, u"an item for two results"};
            }
            head[statement.word] = plainNumber(item);
        }
    }
    Text text;
    for (const auto* word : {u"board", u"raw", u"t", u"z", u"five"}) {
        if (!head.contains(word)) {
            throw SourceError{0, u"no statement " + Text(word)};
        }
        text += head[word] + u"\r\n";
    }
    if (head.size() != 5) {
        throw SourceError{0, u"a statement of an unknown word"};
    }
    return codePage.encode(text + questions);
}
