#include "structure/item_operations.h"

#include "edit/items_to_input.h"
#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/number_text.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "start/table_opening.h"
#include "voice/speech_channel.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace {

constexpr std::int16_t newItem = -1;
constexpr double waitForWords = 1.5;

/// A range of items, both ends included.
struct ItemSpan {
    std::int16_t from;
    std::int16_t to;
    std::int16_t count() const { return static_cast<std::int16_t>(to - from + 1); }
    bool holds(std::int16_t item) const { return item >= from && item <= to; }
};

ItemSpan spanOf(const ZORMOD& zormod, std::int16_t from, std::int16_t to) {
    const ItemSpan span{std::min(from, to), std::max(from, to)};
    if (span.from < 0 || span.to > zormod.items.itemCount) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    return span;
}

/// Bytes of the record up to the end of the item.
std::size_t endOf(const ItemTable& items, std::int16_t item) {
    return static_cast<std::size_t>(items.itemStart[item] + items.itemWidth[item] - 1);
}

std::size_t offsetOf(const ItemTable& items, std::int16_t item) {
    return static_cast<std::size_t>(items.itemStart[item] - 1);
}

/// The items of `order`, by their old numbers.
ItemTable rearranged(const ItemTable& old, const std::vector<std::int16_t>& order) {
    ItemTable items;
    items.itemCount = static_cast<std::int16_t>(order.size() - 1);
    for (std::int16_t item = 0; item <= items.itemCount; ++item) {
        const std::int16_t was = order[static_cast<std::size_t>(item)];
        const bool isNew = was == newItem;
        items.itemName[item] = isNew ? u"追加項目" + plainNumber(item) : old.itemName[was];
        items.itemAlign[item] = isNew ? u"L" : old.itemAlign[was];
        items.itemWidth[item] = isNew ? std::int16_t{1} : old.itemWidth[was];
        items.itemWidthAsRead[item] = items.itemWidth[item];
        items.itemInputMark[item] = isNew ? std::int16_t{0} : old.itemInputMark[was];
    }
    computeItemStart(items);
    return items;
}

/// The numbers of the items before the span, then those behind it.
std::vector<std::int16_t> itemsAround(const ItemTable& items, const ItemSpan& span) {
    std::vector<std::int16_t> order;
    for (std::int16_t item = 0; item <= items.itemCount; ++item) {
        if (!span.holds(item)) {
            order.push_back(item);
        }
    }
    return order;
}

bool isTooMuch(const ZORMOD& zormod, std::int16_t count) {
    const ItemTable& items = zormod.items;
    // Counted with the start of the last item, which is one more than the bytes before it.
    return items.itemStart[items.itemCount] + items.itemWidth[items.itemCount] + count > dataLength ||
           items.itemCount + count > highestItem;
}

/// Part of a record.
struct Piece {
    std::size_t offset;
    std::size_t length;
};

/// Where the bytes of the items of `order` stand, neighbours as one piece.
std::vector<Piece> piecesOf(const ItemTable& items, const std::vector<std::int16_t>& order) {
    std::vector<Piece> pieces;
    for (const std::int16_t item : order) {
        const std::size_t offset = offsetOf(items, item);
        const auto width = static_cast<std::size_t>(items.itemWidth[item]);
        if (!pieces.empty() && pieces.back().offset + pieces.back().length == offset) {
            pieces.back().length += width;
        } else {
            pieces.push_back({offset, width});
        }
    }
    return pieces;
}

/// Rewrites the table for the items of the other table. Which of them take input stands in no file and goes along.
BulkEnd rewriteForOtherItems(ZORMOD& zormod, const BulkJob& job, const std::function<void(BulkRun&)>& loop) {
    const auto marks = zormod.otherItems.itemInputMark;
    const BulkEnd end = bulkRewrite(zormod, job, loop);
    if (end == BulkEnd::done) {
        zormod.items.itemInputMark = marks;
        takeAllIfNoneIsMarked(zormod);
    }
    return end;
}

} // namespace

BulkEnd insertItems(ZORMOD& zormod, std::int16_t from, std::int16_t to) {
    const ItemSpan span = spanOf(zormod, from, to);
    if (isTooMuch(zormod, span.count())) {
        zormod.platform.dialogs.showMessage(
            u"項目幅の合計が" + plainNumber(dataLength) + u"を越えるためこれ以上指定の項目を挿入できません", u"項目挿入不可能");
        return BulkEnd::refused;
    }
    const std::size_t place = offsetOf(zormod.items, span.from);
    std::vector<std::int16_t> order = itemsAround(zormod.items, {0, -1});
    order.insert(order.begin() + span.from, static_cast<std::size_t>(span.count()), newItem);
    zormod.items = rearranged(zormod.items, order);
    const BulkJob job{.items = BulkItems::own, .road = BulkRoad::inPlace, .canStop = false};
    Bytes wider;
    return bulkRewrite(zormod, job, [&](BulkRun& run) {
        run.forEach(1, run.records(), [&](const Bytes& row) {
            wider = row;
            run.write(wider.insert(place, static_cast<std::size_t>(span.count()), ' '));
        });
    });
}

BulkEnd deleteItems(ZORMOD& zormod, std::int16_t from, std::int16_t to) {
    const ItemSpan span = spanOf(zormod, from, to);
    const std::vector<std::int16_t> order = itemsAround(zormod.items, span);
    if (order.empty()) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    const std::size_t begin = offsetOf(zormod.items, span.from);
    const std::size_t end = endOf(zormod.items, span.to);
    zormod.otherItems = rearranged(zormod.items, order);
    Bytes row;
    const BulkEnd ended = rewriteForOtherItems(zormod, {.items = BulkItems::other}, [&](BulkRun& run) {
        run.forEach(1, run.records(), [&](const Bytes& read) {
            endRecord(read, row);
            row.erase(begin, end - begin);
            row.resize(std::min<std::size_t>(row.size(), dataLength));
            row += "\r\n";
            run.writeAsIs(row);
        });
    });
    if (ended == BulkEnd::done) {
        zormod.platform.commands.run(showOpenedTableCommand);
    }
    return ended;
}

BulkEnd moveItems(ZORMOD& zormod, std::int16_t from, std::int16_t to, std::int16_t pointer) {
    const ItemSpan span = spanOf(zormod, from, to);
    if (span.holds(pointer) || pointer < 0 || pointer > zormod.items.itemCount) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    std::vector<std::int16_t> order = itemsAround(zormod.items, span);
    auto place = std::find(order.begin(), order.end(), pointer);
    for (std::int16_t item = span.from; item <= span.to; ++item) {
        place = order.insert(place, item) + 1;
    }
    const std::vector<Piece> pieces = piecesOf(zormod.items, order);
    zormod.otherItems = rearranged(zormod.items, order);
    zormod.taskWord = u"work";
    Bytes moved;
    const BulkJob job{.name = u"項目移動中", .items = BulkItems::other};
    const BulkEnd end = rewriteForOtherItems(zormod, job, [&](BulkRun& run) {
        run.forEach(1, run.records(), [&](const Bytes& row) {
            moved.clear();
            for (const Piece& piece : pieces) {
                moved.append(row, piece.offset, piece.length);
            }
            run.write(moved);
        });
    });
    zormod.taskWord.clear();
    if (end == BulkEnd::done) {
        sayText(zormod, u"項目移動完了。");
        if (zormod.speech.speechMode != 0) {
            waitSeconds(zormod, waitForWords);
        }
    }
    return end;
}
