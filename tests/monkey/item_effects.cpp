#include "tests/monkey/item_effects.h"

#include "tests/monkey/random_table.h"

#include <algorithm>
#include <functional>

namespace {

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
    /// The first item whose value doesn't stand at the place that `placeOf` gives. One without a place, below 0, isn't
    /// looked at, nor is one that has become narrower.
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

} // namespace

Complaint itemsChanged(const CodePage& codePage, const Seen& before, const Seen& now, Effect effect, const Records& old,
                       const Records& made) {
    const Compared compared{codePage, before, now};
    const auto places = placesAfter(effect, before.selection);
    constexpr std::size_t most = 200; // enough to see a wrong cut
    for (std::size_t i = 0; i < std::min(old.size(), most); ++i) {
        if (old[i] == made[i] || holdsHalves(codePage, before.itemTable, old[i])) {
            continue;
        }
        if (effect == Effect::itemsMoved) {
            if (!compared.keepsValuesSomewhere(old[i], made[i])) {
                return complaintAt("moved items: a value was lost", i);
            }
        } else if (const auto lost = compared.lostValue(old[i], made[i], places)) {
            return *complaintAt("items: a value was lost", i) + ", item " + std::to_string(*lost) + ": " +
                   readable(cellOf(before.itemTable, old[i], *lost)) + " became " +
                   readable(cellOf(now.itemTable, made[i], places(*lost)));
        }
    }
    return std::nullopt;
}
