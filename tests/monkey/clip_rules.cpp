#include "tests/monkey/clip_rules.h"

#include <cstdlib>
#include <regex>
#include <vector>

namespace {

struct Fields {
    std::vector<std::string> texts;
    bool isCut = false; ///< the last one begins with a double quote that nothing closes
};

/// The fields: blanks, then a quoted text with whatever follows it, or a plain one; then a comma or a line end.
Fields fieldsOf(const std::string& file) {
    static const std::regex field(R"re( *(?:"([^"]*)("?)[^,\r\n]*|([^,\r\n]*))(?:,|\r\n|\r|\n|$))re");
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

} // namespace

bool clipReadsBack(const std::string& clip) {
    const Fields fields = fieldsOf(clip);
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
    return first >= 1 && static_cast<std::size_t>(first) <= records + 1 && !fieldsOf(backup).isCut;
}
