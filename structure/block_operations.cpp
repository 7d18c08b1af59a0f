#include "structure/block_operations.h"

#include "edit/range_state.h"
#include "platform/beeper.h"
#include "sheet/cell.h"
#include "sheet/change_in_place.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "structure/clip_file.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr std::int64_t firstSlot = 0;
constexpr std::int64_t secondSlot = 1;

/// A block with its ends in order, and the cell that its first one goes to.
struct BlockJob {
    explicit BlockJob(const ZORMOD& zormod, bool move)
        : isMove(move), targetRecord(zormod.position.curRecord), targetItem(zormod.position.curItem) {
        const Selection& range = zormod.selection;
        std::tie(fromRecord, toRecord) = std::minmax(range.selRecordFrom, range.selRecordTo);
        std::tie(fromItem, toItem) = std::minmax(range.selItemFrom, range.selItemTo);
    }
    std::int32_t height() const { return toRecord - fromRecord + 1; }
    bool isOntoItself() const { return targetRecord == fromRecord && targetItem == fromItem; }

    bool isMove;
    std::int32_t fromRecord = 0;
    std::int32_t toRecord = 0;
    std::int16_t fromItem = 0;
    std::int16_t toItem = 0;
    std::int32_t targetRecord;
    std::int16_t targetItem;
};

/// One cell of the block, from slot to slot. False: its place would be behind the last item.
bool takeCell(ZORMOD& zormod, const BlockJob& job, std::int16_t item, std::int64_t source, std::int64_t target) {
    const int place = job.targetItem + item - job.fromItem;
    if (place > zormod.items.itemCount) {
        return false;
    }
    setSlotCell(zormod, target, trimmed(cellOf(zormod, zormod.window.recordWindow[source], item)), place);
    if (job.isMove) {
        setSlotCell(zormod, source, {}, item);
    }
    return true;
}

enum class Order { fromTheFirst, fromTheLast };

/// All cells of one record of the block.
void takeRow(ZORMOD& zormod, const BlockJob& job, std::int64_t source, std::int64_t target, Order order) {
    for (std::int16_t first = job.fromItem, last = job.toItem; first <= last;) {
        const std::int16_t item = order == Order::fromTheFirst ? first++ : last--;
        if (!takeCell(zormod, job, item, source, target)) {
            return;
        }
    }
}

/// The `index`th record of the block, from 0, to another record. False: one of the two is behind the end.
bool takeRecord(ZORMOD& zormod, RecordChanges& run, const BlockJob& job, std::int32_t index) {
    auto& window = zormod.window.recordWindow;
    const std::int64_t source = static_cast<std::int64_t>(job.fromRecord) + index;
    const std::int64_t target = static_cast<std::int64_t>(job.targetRecord) + index;
    if (source > run.records() || target > run.records()) {
        return false;
    }
    const auto sourceRecord = static_cast<std::int32_t>(source);
    const auto targetRecord = static_cast<std::int32_t>(target);
    run.read(sourceRecord, window[secondSlot]);
    run.read(targetRecord, window[firstSlot]);
    takeRow(zormod, job, secondSlot, firstSlot, Order::fromTheFirst);
    run.write(targetRecord, window[firstSlot]);
    if (job.isMove) {
        run.write(sourceRecord, window[secondSlot]);
    }
    return true;
}

/// The block within its own records.
void takeWithinRecords(ZORMOD& zormod, RecordChanges& run, const BlockJob& job) {
    Bytes& row = zormod.window.recordWindow[secondSlot];
    const Order order = job.fromItem <= job.targetItem ? Order::fromTheFirst : Order::fromTheLast;
    for (std::int32_t record = job.fromRecord; record <= std::min(job.toRecord, run.records()); ++record) {
        run.read(record, row);
        takeRow(zormod, job, secondSlot, secondSlot, order);
        run.write(record, row);
    }
}

void takeBlock(ZORMOD& zormod, RecordChanges& run, const BlockJob& job) {
    if (job.targetRecord == job.fromRecord) {
        takeWithinRecords(zormod, run, job);
    } else if (job.targetRecord < job.fromRecord) {
        for (std::int32_t index = 0; index < job.height() && takeRecord(zormod, run, job, index); ++index) {
        }
    } else {
        for (std::int32_t index = job.height() - 1; index >= 0; --index) {
            takeRecord(zormod, run, job, index);
        }
    }
}

/// The records from `first` on, as many as the table has of them.
RecordSpan spanOf(std::int32_t first, std::int32_t count, std::int32_t records) {
    const auto last = std::min<std::int64_t>(static_cast<std::int64_t>(first) + count - 1, records);
    return {first, static_cast<std::int32_t>(last)};
}

void carryOut(ZORMOD& zormod, const BlockJob& job) {
    if (job.isOntoItself()) {
        refreshAfterBulk(zormod, 0);
        return;
    }
    const std::int32_t records = recordCount(zormod);
    changeInPlace(zormod,
                  {.spans = {spanOf(job.fromRecord, job.height(), records),
                             spanOf(job.targetRecord, job.height(), records)}},
                  [&](RecordChanges& run) { takeBlock(zormod, run, job); });
}

} // namespace

void copyBlock(ZORMOD& zormod) { carryOut(zormod, BlockJob(zormod, false)); }

void moveBlock(ZORMOD& zormod) {
    const BlockJob job(zormod, true);
    if (job.isOntoItself()) {
        zormod.platform.beeper.beep();
    }
    carryOut(zormod, job);
}

void clearRange(ZORMOD& zormod, std::int32_t recordFrom, std::int32_t recordTo, std::int16_t itemFrom,
                std::int16_t itemTo) {
    const auto [firstItem, lastItem] = std::minmax(itemFrom, itemTo);
    const auto [firstRecord, last] = std::minmax(recordFrom, recordTo);
    zormod.selection = {.selectionKind = 1,
                        .selRecordFrom = firstRecord,
                        .selRecordTo = last,
                        .selItemFrom = firstItem,
                        .selItemTo = lastItem};
    if (!makeClip(zormod)) {
        dropRange(zormod);
        refreshAfterBulk(zormod, 0);
        return;
    }
    const RecordSpan span = spanOf(firstRecord, last - firstRecord + 1, recordCount(zormod));
    Bytes& row = zormod.window.recordWindow[secondSlot];
    changeInPlace(zormod, {.name = u"消去中", .spans = {span}},
                  [&, firstItem = firstItem, lastItem = lastItem](RecordChanges& run) {
                      for (std::int32_t record = span.from; record <= span.to && run.nextRound(); ++record) {
                          run.read(record, row);
                          for (std::int16_t item = firstItem; item <= lastItem; ++item) {
                              setSlotCell(zormod, secondSlot, {}, item);
                          }
                          run.write(record, row);
                      }
                  });
}
