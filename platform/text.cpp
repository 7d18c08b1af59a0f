#include "platform/text.h"

Text trimmed(TextView text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == TextView::npos) {
        return {};
    }
    return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

Text withLinesEndedByCr(TextView text) {
    Text ended;
    ended.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'\n') {
            ended += text[i];
        } else if (i == 0 || text[i - 1] != u'\r') {
            ended += u'\r';
        }
    }
    return ended;
}

std::size_t lastPosition(TextView text, TextView needle) {
    if (needle.empty()) {
        return 0;
    }
    const auto found = text.rfind(needle);
    return found == TextView::npos ? 0 : found + 1;
}

bool contains(TextView text, TextView needle) {
    return !needle.empty() && text.find(needle) != TextView::npos;
}
