#include "platform/text_picture.h"

#include "platform/letter_case.h"

#include <algorithm>

namespace {

bool isPlace(char16_t unit) { return unit == u'@' || unit == u'&'; }

/// Length of the field that starts at `at`, 0 if none does.
std::size_t fieldLength(TextView picture, std::size_t at) {
    if (picture[at] != u'&') {
        return 0;
    }
    const auto end = picture.find_first_not_of(u' ', at + 1);
    const bool isField = end != TextView::npos && end > at + 1 && picture[end] == u'&';
    return isField ? end + 1 - at : 0;
}

bool hasField(TextView picture) {
    for (std::size_t i = 0; i < picture.size(); ++i) {
        if (fieldLength(picture, i) > 0) {
            return true;
        }
    }
    return false;
}

Text inFields(TextView text, TextView picture) {
    Text result;
    std::size_t at = 0;
    while (at < picture.size()) {
        if (const auto length = fieldLength(picture, at); length > 0) {
            result += text;
            result.append(text.size() < length ? length - text.size() : 0, u' ');
            text = {};
            at += length;
            continue;
        }
        if (picture[at] == u'@') {
            result += u' ';
        } else if (picture[at] != u'&') {
            result += picture[at];
        }
        ++at;
    }
    return result;
}

Text inPlaces(TextView text, TextView picture) {
    auto placesLeft = static_cast<std::size_t>(std::count_if(picture.begin(), picture.end(), isPlace));
    Text result;
    for (const char16_t unit : picture) {
        if (!isPlace(unit)) {
            result += unit;
            continue;
        }
        --placesLeft;
        if (text.size() > placesLeft) {
            const auto length = text.size() - placesLeft;
            result += text.substr(0, length);
            text.remove_prefix(length);
        } else if (unit == u'@') {
            result += u' ';
        }
    }
    return result;
}

} // namespace

Text Format(TextView text, TextView picture) {
    if (picture.empty()) {
        return Text(text);
    }
    const auto mark = picture.find_last_of(u"<>");
    if (mark == TextView::npos) {
        return hasField(picture) ? inFields(text, picture) : inPlaces(text, picture);
    }
    const bool isWholeAtMark = picture.find_first_of(u"@&") == TextView::npos;
    const Text folded = picture[mark] == u'<' ? lowerCase(text) : upperCase(text);
    Text bare;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        if (picture[i] != u'<' && picture[i] != u'>') {
            bare += picture[i];
        } else if (isWholeAtMark && i == mark) {
            bare += u'&';
        }
    }
    return hasField(bare) ? inFields(folded, bare) : inPlaces(folded, bare);
}
