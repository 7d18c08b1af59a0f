#include "tests/monkey/clip_rules.h"

#include <cstdlib>
#include <regex>
#include <vector>

namespace {

/// The texts of the fields: blanks, then a quoted one with whatever follows it, or a plain one; then a comma or a line end.
std::vector<std::string> fieldsOf(const std::string& clip) {
    static const std::regex field(R"re( *(?:"([^"]*)"?[^,\r\n]*|([^,\r\n]*))(?:,|\r\n|\r|\n|$))re");
    std::vector<std::string> fields;
    auto at = clip.cbegin();
    std::smatch match;
    while (at != clip.cend() && std::regex_search(at, clip.cend(), match, field, std::regex_constants::match_continuous)) {
        fields.push_back(match[1].matched ? match.str(1) : match.str(2));
        at = match[0].second;
    }
    return fields;
}

} // namespace

bool clipReadsBack(const std::string& clip) {
    const std::vector<std::string> fields = fieldsOf(clip);
    const auto number = [&](std::size_t index) -> std::size_t {
        return index < fields.size() ? std::strtoul(fields[index].c_str(), nullptr, 10) : 0;
    };
    const std::size_t records = number(0);
    const std::size_t items = number(1 + records);
    return records > 0 && items > 0 && fields.size() >= 2 + records + items + records * items;
}

bool backupFits(const std::string& backup, std::size_t records) {
    const long first = std::strtol(backup.c_str(), nullptr, 10);
    return first >= 1 && static_cast<std::size_t>(first) <= records + 1;
}
