#include "structure/width_rewrite.h"

#include "sheet/bulk_rewrite.h"
#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "voice/announcement.h"

#include <algorithm>

Bytes resizedRecord(BytesView record, const ItemTable& old, const ItemTable& made) {
    Bytes row;
    row.reserve(recordLength);
    for (std::int16_t item = 0; item <= made.itemCount; ++item) {
        const BytesView cell = itemSpan(old, record, item, item);
        const auto width = static_cast<std::size_t>(made.itemWidth[item]);
        if (cell.size() == width) { // as all cells but those of the item in hand
            row += cell;
        } else {
            appendAligned(row, cell, width, made.itemAlign[item] != u"L");
        }
    }
    // A table may come with widths that leave no room for the line end.
    row.resize(std::min<std::size_t>(row.size(), dataLength));
    row += "\r\n";
    row.resize(recordLength, ' ');
    return row;
}

void rewriteWidths(ZORMOD& zormod, const CheckedArray<std::int16_t, itemEntries>& widthBefore) {
    ItemTable old = zormod.items;
    old.itemWidth = widthBefore;
    computeItemStart(old);
    const BulkJob job{.name = u"データ書き換え中  中止不可",
                      .items = BulkItems::own,
                      .road = BulkRoad::inPlace,
                      .canStop = false};
    // It can neither be stopped nor refused, so it has been done when the call returns.
    bulkRewrite(zormod, job, [&](BulkRun& run) {
        run.forEach(1, run.records(),
                    [&](const Bytes& row) { run.writeAsIs(resizedRecord(row, old, zormod.items)); });
    });
    talkS(zormod, u"書き換え終了");
}
