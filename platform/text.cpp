#include "platform/text.h"

Text trimmed(TextView text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == TextView::npos) {
        return {};
    }
    return Text(text.substr(first, text.find_last_not_of(u' ') - first + 1));
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
