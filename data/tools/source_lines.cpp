#include "data/tools/source_lines.h"

#include "platform/number_text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cmath>

const Text& Statement::field(std::size_t index, std::size_t count) const {
    if (fields.size() != count) {
        throw SourceError{line, word + u" needs " + plainNumber(count) + u" fields"};
    }
    return fields[index];
}

int Statement::number(std::size_t index, std::size_t count, int least, int most) const {
    const Text& text = field(index, count);
    const double value = Val(text);
    if (value < least || value > most || value != std::floor(value) || plainNumber(value) != text) {
        throw SourceError{line, text + u" is no number from " + plainNumber(least) + u" to " + plainNumber(most)};
    }
    return static_cast<int>(value);
}

std::vector<SourceLine> sourceLines(const CodePage& codePage, BytesView utf8) {
    std::vector<SourceLine> lines;
    while (!utf8.empty()) {
        const auto end = std::min(utf8.find('\n'), utf8.size());
        const std::size_t number = lines.size() + 1;
        const Text text = fromUtf8(utf8.substr(0, end));
        for (const char16_t unit : text) {
            if (unit < u' ' || !codePage.canEncode(unit) ||
                codePage.decode(codePage.encode(Text(1, unit)))[0] != unit) {
                throw SourceError{number, u"the code page lacks " + Text(1, unit)};
            }
        }
        lines.push_back({number, text});
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
    }
    return lines;
}

std::vector<Statement> statements(const CodePage& codePage, BytesView utf8) {
    std::vector<Statement> found;
    for (const SourceLine& line : sourceLines(codePage, utf8)) {
        if (line.text.empty() || line.text[0] == u'#') {
            continue;
        }
        const auto colon = line.text.find(u':');
        if (colon == Text::npos) {
            throw SourceError{line.number, u"no statement"};
        }
        Statement statement{.line = line.number, .word = trimmed(line.text.substr(0, colon)), .fields = {}};
        TextView rest = TextView(line.text).substr(colon + 1);
        for (auto bar = rest.find(u'|'); bar != TextView::npos; bar = rest.find(u'|')) {
            statement.fields.push_back(trimmed(rest.substr(0, bar)));
            rest.remove_prefix(bar + 1);
        }
        statement.fields.push_back(trimmed(rest));
        found.push_back(std::move(statement));
    }
    return found;
}
