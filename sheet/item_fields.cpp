#include "sheet/item_fields.h"

#include "platform/code_page.h"

#include <algorithm>

namespace {

/// A K file is at most 511 lines; one much larger than any table could need is not read.
constexpr std::size_t largestItemFile = 16u << 20;
/// Longest item name that survives reading, in characters.
constexpr std::size_t longestName = 248;
constexpr std::size_t widthCharacters = 5;

/// At most `count` characters behind the label; nothing where the field is shorter.
Text behindLabel(const Text& field, std::size_t count) {
    return itemTextOffset < field.size() ? field.substr(itemTextOffset, count) : Text();
}

} // namespace

Text itemFileContents(ZORMOD& zormod, const Text& path) {
    return zormod.platform.codePage.decode(zormod.platform.files.readWhole(path, largestItemFile));
}

Text ItemFields::next() {
    if (atEnd()) {
        throw RuntimeFailure{FailureKind::file};
    }
    const auto first = std::min(text_.find_first_not_of(u' ', at_), text_.size());
    const auto end = std::min(text_.find_first_of(u",\r\n", first), text_.size());
    at_ = end + 1;
    if (end + 1 < text_.size() && text_[end] == u'\r' && text_[end + 1] == u'\n') {
        ++at_;
    }
    return text_.substr(first, end - first);
}

Text nameField(const Text& field) {
    return behindLabel(field, longestName);
}

Text widthField(const Text& field) {
    return behindLabel(field, widthCharacters);
}
