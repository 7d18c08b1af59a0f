#include "tests/monkey/operation_rules.h"

#include "tests/monkey/random_table.h"

#include <algorithm>
#include <array>
#include <functional>

namespace {

using Records = std::vector<std::string_view>;

struct Word {
    TextView name;
    Effect effect;
};

constexpr std::array<Word, 13> commands = {{
    {u"mnuKILLREC1", Effect::recordsRemoved},
    {u"menuRKILL", Effect::recordsRemoved},
    {u"mnuINSREC1", Effect::recordsAdded},
    {u"mnuINSRECM", Effect::recordsAdded},
    {u"insertRangeRecords", Effect::recordsAdded},
    {u"mnuZDEL", Effect::rangeCleared},
    {u"mnuKILLITEM", Effect::itemsRemoved},
    {u"mnuINSITEM", Effect::itemsAdded},
    {u"mnuKOUMOKU", Effect::itemsRecut},
    {u"mnuFLN", Effect::itemsRecut},
    {u"widenItem", Effect::itemsRecut},
    {u"narrowItem", Effect::itemsRecut},
    {u"mnuRL", Effect::itemsRecut},
}};
constexpr std::array<Word, 5> taskWords = {{
    {u"moverecord", Effect::recordsMoved},
    {u"moveitem", Effect::itemsMoved},
    {u"move", Effect::blockPut},
    {u"copy", Effect::blockPut},
    {u"chfln", Effect::itemsRecut},
}};

template <typename List> Effect lookUp(const List& list, TextView name) {
    const auto* const found =
        std::find_if(list.begin(), list.end(), [&](const Word& word) { return word.name == name; });
    return found == list.end() ? Effect::none : found->effect;
}

Records recordsOf(std::string_view bytes) {
    Records records;
    for (; bytes.size() >= recordLength; bytes.remove_prefix(recordLength)) {
        // Of a record whose items were deleted the end is put right by the next operation that copies it.
        records.push_back(bytes.substr(0, dataLength));
    }
    return records;
}

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

std::string_view cellOf(const ItemTable& items, std::string_view record, std::int64_t item) {
    return record.substr(static_cast<std::size_t>(items.itemStart[item] - 1),
                         static_cast<std::size_t>(items.itemWidth[item]));
}

/// Some byte of the record forms no character, so that a cut elsewhere may join it with a neighbour.
bool holdsHalves(const CodePage& codePage, const ItemTable& items, std::string_view record) {
    for (std::int64_t item = 0; item <= items.itemCount; ++item) {
        const Text cell = codePage.decode(cellOf(items, record, item));
        if (std::any_of(cell.begin(), cell.end(), isCarriedByte)) {
            return true;
        }
    }
    return false;
}

/// The comparison of one record and what became of it.
struct Compared {
    const CodePage& codePage;
    const Seen& before;
    const Seen& now;

    Text value(const Seen& seen, std::string_view record, std::int64_t item) const {
        return trimmed(codePage.decode(cellOf(seen.itemTable, record, item)));
    }
    /// Each item for which `placeOf` gives a place of 0 or more stands there with its value, unless it has become
    /// narrower.
    /// The first that doesn't is given.
    std::optional<int> lostValue(std::string_view old, std::string_view made,
                                 const std::function<int(int)>& placeOf) const {
        for (int item = 0; item <= before.itemTable.itemCount; ++item) {
            const int place = placeOf(item);
            if (place < 0 || place > now.itemTable.itemCount ||
                now.itemTable.itemWidth[place] < before.itemTable.itemWidth[item]) {
                continue;
            }
            if (value(before, old, item) != value(now, made, place)) {
                return item;
            }
        }
        return std::nullopt;
    }
    bool keepsValuesSomewhere(std::string_view old, std::string_view made) const {
        std::vector<Text> values;
        std::vector<Text> found;
        for (int item = 0; item <= before.itemTable.itemCount; ++item) {
            values.push_back(value(before, old, item));
        }
        for (int item = 0; item <= now.itemTable.itemCount; ++item) {
            found.push_back(value(now, made, item));
        }
        std::sort(values.begin(), values.end());
        std::sort(found.begin(), found.end());
        return values == found;
    }
};

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

/// Where an item of the old table stands in the new one; -1: nowhere.
std::function<int(int)> placesAfter(Effect effect, const Selection& range) {
    const int from = range.selItemFrom;
    const int count = range.selItemTo - from + 1;
    if (effect == Effect::itemsRemoved) {
        return [from, count](int item) { return item < from ? item : item < from + count ? -1 : item - count; };
    }
    if (effect == Effect::itemsAdded) {
        return [from, count](int item) { return item < from ? item : item + count; };
    }
    return [](int item) { return item; };
}

Complaint itemsChanged(const Compared& compared, Effect effect, const Records& old, const Records& now) {
    const auto places = placesAfter(effect, compared.before.selection);
    constexpr std::size_t most = 200; // enough to see a wrong cut
    for (std::size_t i = 0; i < std::min(old.size(), most); ++i) {
        if (old[i] == now[i] || holdsHalves(compared.codePage, compared.before.itemTable, old[i])) {
            continue;
        }
        if (effect == Effect::itemsMoved) {
            if (!compared.keepsValuesSomewhere(old[i], now[i])) {
                return complaintAt("moved items: a value was lost", i);
            }
        } else if (const auto lost = compared.lostValue(old[i], now[i], places)) {
            return *complaintAt("items: a value was lost", i) + ", item " + std::to_string(*lost) + ": " +
                   readable(cellOf(compared.before.itemTable, old[i], *lost)) + " became " +
                   readable(cellOf(compared.now.itemTable, now[i], places(*lost)));
        }
    }
    return std::nullopt;
}

Complaint changedFrom(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now) {
    const Records old = recordsOf(before.records);
    const Records made = recordsOf(now.records);
    if (before.records == now.records || effect == Effect::none) {
        return std::nullopt;
    }
    if (effect == Effect::recordsRemoved) {
        return stretchChanged(old, made, false);
    }
    if (effect == Effect::recordsAdded) {
        return stretchChanged(made, old, !before.idIsAutomatic);
    }
    if (old.size() != made.size()) {
        return "records: " + std::to_string(old.size()) + " became " + std::to_string(made.size());
    }
    switch (effect) {
    case Effect::recordsMoved:
        return recordsMoved(old, made);
    case Effect::rangeCleared:
        return rangeCleared(codePage, before, old, made);
    case Effect::blockPut:
        return blockPut(before, now, old, made);
    default:
        return itemsChanged({codePage, before, now}, effect, old, made);
    }
}

} // namespace

Effect effectOf(const Seen& before, const std::vector<Text>& ran) {
    for (const Text& name : ran) {
        if (const Effect effect = lookUp(commands, name); effect != Effect::none) {
            return effect;
        }
    }
    return lookUp(taskWords, before.taskWord);
}

Complaint changedByEffect(const CodePage& codePage, Effect effect, const Seen& before, const Seen& now) {
    if (before.table.empty() || before.table != now.table) {
        return std::nullopt;
    }
    const Complaint complaint = changedFrom(codePage, effect, before, now);
    return complaint ? changedFrom(codePage, effect, withRowSaved(codePage, before), now) : complaint;
}
