#include "tests/monkey/clip_rules.h"

#include <cstdlib>
#include <regex>
#include <vector>

namespace {

struct Fields {
    std::vector<std::string> texts;
    bool isCut = false; ///< the last one begins with a double quote that nothing closes
};

/// The fields by a pattern of one: in the first place a quoted text, in the second the quote behind it, in the third a
/// plain text.
Fields fieldsOf(const std::string& file, const std::regex& field) {
    Fields fields;
    auto at = file.cbegin();
    std::smatch match;
    while (at != file.cend() && std::regex_search(at, file.cend(), match, field, std::regex_constants::match_continuous)) {
        fields.texts.push_back(match[1].matched ? match.str(1) : match.str(3));
        fields.isCut = match[2].matched && match.length(2) == 0;
        at = match[0].second;
    }
    return fields;
}

/// Blanks, then a quoted text with whatever follows it, or a plain one; then a comma or a line end.
Fields cellsOf(const std::string& clip) {
    static const std::regex cell(R"re( *(?:"([^"]*)("?)[^,\r\n]*|([^,\r\n]*))(?:,|\r\n|\r|\n|$))re");
    return fieldsOf(clip, cell);
}

/// The same, one a line.
Fields rowsOf(const std::string& backup) {
    static const std::regex row(R"re( *(?:"([^"]*)("?)[^\r\n]*|([^\r\n]*))(?:\r\n|\r|\n|$))re");
    return fieldsOf(backup, row);
}

} // namespace

bool clipReadsBack(const std::string& clip) {
    const Fields fields = cellsOf(clip);
    const auto number = [&](std::size_t index) -> std::size_t {
        return index < fields.texts.size() ? std::strtoul(fields.texts[index].c_str(), nullptr, 10) : 0;
    };
    const std::size_t records = number(0);
    const std::size_t items = number(1 + records);
    const std::size_t wanted = 2 + records + items + records * items;
    return records > 0 && items > 0 &&
           (fields.texts.size() > wanted || (fields.texts.size() == wanted && !fields.isCut));
}

bool backupFits(const std::string& backup, std::size_t records) {
    const long first = std::strtol(backup.c_str(), nullptr, 10);
    return first >= 1 && static_cast<std::size_t>(first) <= records + 1 && !rowsOf(backup).isCut;
}
