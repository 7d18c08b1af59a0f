#include "platform/name_pattern.h"

#include "platform/letter_case.h"

namespace {

/// Both texts in upper case. After a mismatch the last "*" takes one character more, so the work is at most the product
/// of the lengths.
bool fits(TextView name, TextView pattern) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = TextView::npos;
    std::size_t resumed = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == u'*') {
            star = in++;
            resumed = at;
        } else if (in < pattern.size() && (pattern[in] == u'?' || pattern[in] == name[at])) {
            ++in;
            ++at;
        } else if (star != TextView::npos) {
            in = star + 1;
            at = ++resumed;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', in) == TextView::npos;
}

} // namespace

bool fitsPattern(TextView name, TextView pattern) {
    return pattern == u"*.*" || fits(upperCase(name), upperCase(pattern));
}
