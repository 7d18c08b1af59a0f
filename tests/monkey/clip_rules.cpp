#include "tests/monkey/clip_rules.h"

#include <cstdlib>
#include <limits>
#include <regex>

namespace {

struct Fields {
    std::vector<std::string> texts;
    bool isCut = false; ///< the last one begins with a double quote that nothing closes
};

constexpr std::size_t all = std::numeric_limits<std::size_t>::max();

/// The first `most` fields by a pattern of one: in the first place a quoted text, in the second the quote behind it, in
/// the third a plain text.
Fields fieldsOf(const std::string& file, const std::regex& field, std::size_t most) {
    Fields fields;
    auto at = file.cbegin();
    std::smatch match;
    while (at != file.cend() && fields.texts.size() < most &&
           std::regex_search(at, file.cend(), match, field, std::regex_constants::match_continuous)) {
        fields.texts.push_back(match[1].matched ? match.str(1) : match.str(3));
        fields.isCut = match[2].matched && match.length(2) == 0;
        at = match[0].second;
    }
    return fields;
}

/// Blanks, then a quoted text with whatever follows it, or a plain one; then a comma or a line end.
Fields cellsOf(const std::string& clip, std::size_t most = all) {
    static const std::regex cell(R"re( *(?:"([^"]*)("?)[^,\r\n]*|([^,\r\n]*))(?:,|\r\n|\r|\n|$))re");
    return fieldsOf(clip, cell, most);
}

/// The same, one a line.
Fields rowsOf(const std::string& backup) {
    static const std::regex row(R"re( *(?:"([^"]*)("?)[^\r\n]*|([^\r\n]*))(?:\r\n|\r|\n|$))re");
    return fieldsOf(backup, row, all);
}

std::size_t numberAt(const Fields& fields, std::size_t index) {
    return index < fields.texts.size() ? std::strtoul(fields.texts[index].c_str(), nullptr, 10) : 0;
}

} // namespace

ClipShape shapeOf(const std::string& clip) {
    const std::size_t records = numberAt(cellsOf(clip, 1), 0);
    const std::size_t items = numberAt(cellsOf(clip, records + 2), records + 1);
    return records > 0 && items > 0 ? ClipShape{records, items} : ClipShape{};
}

PasteBackup backupOf(const std::string& backup) {
    PasteBackup read;
    read.rows = rowsOf(backup).texts;
    if (!read.rows.empty()) {
        read.first = std::strtol(read.rows.front().c_str(), nullptr, 10);
        read.rows.erase(read.rows.begin());
    }
    return read;
}

bool clipReadsBack(const std::string& clip) {
    const Fields fields = cellsOf(clip);
    const std::size_t records = numberAt(fields, 0);
    const std::size_t items = numberAt(fields, 1 + records);
    const std::size_t wanted = 2 + records + items + records * items;
    return records > 0 && items > 0 &&
           (fields.texts.size() > wanted || (fields.texts.size() == wanted && !fields.isCut));
}

bool backupFits(const std::string& backup, std::size_t records) {
    const long first = std::strtol(backup.c_str(), nullptr, 10);
    return first >= 1 && static_cast<std::size_t>(first) <= records + 1 && !rowsOf(backup).isCut;
}
