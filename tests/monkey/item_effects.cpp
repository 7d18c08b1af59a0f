#include "tests/monkey/item_effects.h"

#include "tests/monkey/cells.h"

#include <algorithm>
#include <functional>

namespace {

/// The comparison of one record and what became of it.
struct Compared {
    const CodePage& codePage;
    const Seen& before;
    const Seen& now;

    Text value(const Seen& seen, std::string_view record, int item) const {
        return valueIn(codePage, seen.itemTable, record, item);
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
    // All records of most tables; of a long one some all over it, since each cell is decoded twice.
    constexpr std::size_t most = 2000;
    const std::size_t step = old.size() / most + 1;
    for (std::size_t i = 0; i < old.size(); i += step) {
        // A new design may leave the records as they are, but no other operation cuts them anew without rewriting them.
        const bool isKept = effect == Effect::itemsRecut && old[i] == made[i];
        if (isKept || holdsHalves(codePage, before.itemTable, old[i])) {
            continue;
        }
        if (effect == Effect::itemsMoved) {
            if (!compared.keepsValuesSomewhere(old[i], made[i])) {
                return complaintAt("moved items: a value was lost", i);
            }
        } else if (const auto lost = compared.lostValue(old[i], made[i], places)) {
            return *complaintAt("items: a value was lost", i) + ", item " + std::to_string(*lost) + ": " +
                   readable(cellIn(before.itemTable, old[i], *lost)) + " became " +
                   readable(cellIn(now.itemTable, made[i], places(*lost)));
        }
    }
    return std::nullopt;
}
