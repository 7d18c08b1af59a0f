#include "tests/monkey/record_effects.h"

#include "tests/monkey/cells.h"
#include "tests/monkey/random_table.h"

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

template <typename Number> bool isWithin(Number number, Number from, Number to) {
    return number >= from && number <= to;
}

std::string becameRecords(const char* what, std::size_t old, std::size_t now) {
    return std::string(what) + ": " + std::to_string(old) + " records became " + std::to_string(now);
}

Complaint otherCellAt(const char* what, std::size_t record, int item) {
    return *complaintAt(what, record) + ", item " + std::to_string(item);
}

/// The bytes 255 and 256 of a record whose line end is written behind its first `bytes` bytes.
Bytes endBehind(int bytes) {
    Bytes record(static_cast<std::size_t>(std::min(bytes, dataLength)), ' ');
    record += "\r\n";
    record.resize(recordLength, ' ');
    return record.substr(dataLength);
}

/// Bytes of all items together.
int widthOf(const ItemTable& items) {
    return items.itemStart[items.itemCount] + items.itemWidth[items.itemCount] - 1;
}

/// Bytes of the selected items.
int selectedWidth(const Seen& seen) {
    const auto [first, last] = std::minmax(seen.selection.selItemFrom, seen.selection.selItemTo);
    return seen.itemTable.itemStart[last] + seen.itemTable.itemWidth[last] - seen.itemTable.itemStart[first];
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

Complaint pastedOver(const CodePage& codePage, const Seen& before, const ClipShape& clip, const Records& old,
                     const Records& now) {
    const auto first = static_cast<std::size_t>(before.position.curRecord - 1);
    const std::size_t end = first + clip.records;
    if (now.size() < old.size() || now.size() > std::max(old.size(), end)) {
        return becameRecords("paste", old.size(), now.size());
    }
    const auto isPasted = [&, item0 = before.position.curItem](int item) {
        return item >= item0 && static_cast<std::size_t>(item - item0) < clip.items;
    };
    const Bytes blank(dataLength, ' ');
    for (std::size_t i = 0; i < now.size(); ++i) {
        const std::string_view was = i < old.size() ? old[i] : std::string_view(blank);
        if (was == now[i]) {
            continue;
        }
        if (i < first || i >= end) {
            return complaintAt("paste: changed outside", i);
        }
        // A paste that is stopped is taken back through its backup, where a double quote cuts a row.
        const bool mayBeCut = was.find('"') != std::string_view::npos;
        const auto item = changedCell(codePage, before.itemTable, was, now[i], isPasted);
        if (item && !mayBeCut) {
            return otherCellAt("paste: another cell changed", i, *item);
        }
    }
    return std::nullopt;
}

Complaint pasteTakenBack(const CodePage& codePage, const PasteBackup& backup, const Records& old, const Records& now) {
    if (backup.first < 1 || backup.rows.empty()) {
        return "paste taken back: changed without a backup";
    }
    const auto first = static_cast<std::size_t>(backup.first - 1);
    const std::size_t end = first + backup.rows.size();
    if (now.size() != std::max(old.size(), end)) {
        return becameRecords("paste taken back", old.size(), now.size());
    }
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (i < first || i >= end) {
            if (i >= old.size() || old[i] != now[i]) {
                return complaintAt("paste taken back: changed outside", i);
            }
            continue;
        }
        Bytes wanted = canonical(codePage, backup.rows[i - first]);
        wanted.resize(dataLength, ' ');
        if (now[i] != wanted) {
            return complaintAt("paste taken back: not what the backup holds", i);
        }
    }
    return std::nullopt;
}

Complaint blockPut(const CodePage& codePage, const Seen& before, const Records& old, const Records& now) {
    const Selection& range = before.selection;
    const Position& target = before.position;
    const bool isMove = before.taskWord == u"move";
    const int height = range.selRecordTo - range.selRecordFrom;
    const int width = range.selItemTo - range.selItemFrom;
    for (std::size_t i = 0; i < old.size(); ++i) {
        if (old[i] == now[i]) {
            continue;
        }
        const int number = static_cast<int>(i) + 1;
        const bool isTarget = isWithin(number, target.curRecord, target.curRecord + height);
        const bool isSource = isMove && isWithin(number, range.selRecordFrom, range.selRecordTo);
        if (!isTarget && !isSource) {
            return complaintAt("block: changed outside", i);
        }
        const auto isPut = [&](int item) {
            return (isTarget && isWithin<int>(item, target.curItem, target.curItem + width)) ||
                   (isSource && isWithin<int>(item, range.selItemFrom, range.selItemTo));
        };
        if (const auto item = changedCell(codePage, before.itemTable, old[i], now[i], isPut)) {
            return otherCellAt("block: another cell changed", i, *item);
        }
    }
    return std::nullopt;
}

Bytes endAfterDeletion(const Seen& before) {
    return endBehind(recordLength - selectedWidth(before));
}

Bytes endAfterWidths(const Seen& now) {
    return endBehind(widthOf(now.itemTable));
}

Complaint recordsEndIn(BytesView end, const Seen& before, const Seen& now) {
    for (int number = 1; number <= now.recordCount(); ++number) {
        const std::string_view record = now.record(number);
        const bool isKept = number <= before.recordCount() && record == before.record(number);
        if (!isKept && record.substr(dataLength) != end) {
            return "line end: record " + std::to_string(number) + " ends in " + readable(record.substr(dataLength));
        }
    }
    return std::nullopt;
}
