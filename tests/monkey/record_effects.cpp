#include "tests/monkey/record_effects.h"

#include <algorithm>

namespace {

/// `shorter` is `longer` without one stretch of it; `stretch` gets that.
bool lacksOneStretch(const Records& longer, const Records& shorter, Records& stretch) {
    if (shorter.size() > longer.size()) {
        return false;
    }
    const auto same = std::mismatch(shorter.begin(), shorter.end(), longer.begin()).first;
    const auto sameBehind = std::mismatch(shorter.rbegin(), shorter.rend(), longer.rbegin()).first;
    const auto ahead = same - shorter.begin();
    if (ahead + (sameBehind - shorter.rbegin()) < static_cast<std::ptrdiff_t>(shorter.size())) {
        return false;
    }
    stretch.assign(longer.begin() + ahead,
                   longer.begin() + ahead + static_cast<std::ptrdiff_t>(longer.size() - shorter.size()));
    return true;
}

bool isBlank(std::string_view record) {
    return record.substr(0, dataLength).find_first_not_of(' ') == std::string_view::npos;
}

} // namespace

Complaint complaintAt(const char* what, std::size_t record) {
    return std::string(what) + ": record " + std::to_string(record + 1);
}

Complaint recordsMoved(const Records& old, const Records& now) {
    Records one = old;
    Records other = now;
    std::sort(one.begin(), one.end());
    std::sort(other.begin(), other.end());
    return one == other ? std::nullopt : Complaint("moved records: not the same records any more");
}

Complaint stretchChanged(const Records& longer, const Records& shorter, bool mustBeBlank) {
    Records stretch;
    if (!lacksOneStretch(longer, shorter, stretch)) {
        const auto same = std::mismatch(shorter.begin(), shorter.end(), longer.begin(), longer.end());
        const auto back = std::mismatch(shorter.rbegin(), shorter.rend(), longer.rbegin(), longer.rend());
        return "records: more changed than one stretch of them, from record " +
               std::to_string(same.first - shorter.begin() + 1) + " to " + std::to_string(shorter.rend() - back.first) +
               " of " + std::to_string(shorter.size()) + ", with " + std::to_string(longer.size()) +
               " in the other table";
    }
    if (mustBeBlank && !std::all_of(stretch.begin(), stretch.end(), isBlank)) {
        return "added records: not all are blank";
    }
    return std::nullopt;
}

Complaint rangeCleared(const CodePage& codePage, const Seen& before, const Records& old, const Records& now) {
    const Selection& range = before.selection;
    const auto from = static_cast<std::size_t>(before.itemTable.itemStart[range.selItemFrom] - 1);
    const auto to = static_cast<std::size_t>(before.itemTable.itemStart[range.selItemTo] - 1 +
                                             before.itemTable.itemWidth[range.selItemTo]);
    for (std::size_t i = 0; i < old.size(); ++i) {
        const auto number = static_cast<std::int32_t>(i) + 1;
        if (old[i] == now[i]) {
            continue;
        }
        Bytes wanted(old[i].substr(0, dataLength));
        wanted.replace(from, to - from, to - from, ' ');
        if (number < range.selRecordFrom || number > range.selRecordTo) {
            return complaintAt("cleared range: changed outside", i);
        }
        if (canonical(codePage, wanted) != canonical(codePage, now[i].substr(0, dataLength)) &&
            before.itemTable.itemCount != range.selItemTo) {
            return complaintAt("cleared range: other cells changed", i);
        }
    }
    return std::nullopt;
}

Complaint pastedOver(const Seen& before, const Records& old, const Records& now) {
    if (now.size() < old.size()) {
        return "paste: records have gone";
    }
    const auto ahead = static_cast<std::size_t>(before.position.curRecord - 1);
    for (std::size_t i = 0; i < std::min(old.size(), ahead); ++i) {
        if (old[i] != now[i]) {
            return complaintAt("paste: changed ahead of it", i);
        }
    }
    return std::nullopt;
}

Complaint blockPut(const Seen& before, const Seen& after, const Records& old, const Records& now) {
    const Selection& range = before.selection;
    const std::int32_t height = range.selRecordTo - range.selRecordFrom;
    const auto isIn = [](std::int32_t number, std::int32_t from, std::int32_t to) {
        return number >= from && number <= to;
    };
    for (std::size_t i = 0; i < old.size(); ++i) {
        const auto number = static_cast<std::int32_t>(i) + 1;
        if (old[i] != now[i] && !isIn(number, range.selRecordFrom, range.selRecordTo) &&
            !isIn(number, before.position.curRecord, before.position.curRecord + height) &&
            !isIn(number, after.position.curRecord, after.position.curRecord + height)) {
            return complaintAt("block: changed outside", i);
        }
    }
    return std::nullopt;
}
