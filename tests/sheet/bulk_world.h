#pragma once
// A table and the demonstration operations on it by which the bulk rewrite is tested.

#include "sheet/bulk_rewrite.h"
#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "support/faulty_files.h"
#include "support/folder_entries.h"
#include "support/test_world.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

/// A folder with the table "t.txt" of `records` records in two items.
struct BulkWorld : TestWorld {
    explicit BulkWorld(int records = 7) {
        std::vector<std::vector<std::u16string_view>> rows;
        static constexpr std::u16string_view names[] = {u"山田", u"佐藤", u"a", u"", u"鈴木一郎"};
        for (int i = 0; i < records; ++i) {
            rows.push_back({names[i % 5], names[(i + 2) % 5]});
        }
        makeTable("t.txt", {{u"ID", u"L", 4}, {u"氏名", u"R", 8}}, rows);
        openTable("t.txt");
    }

    std::set<std::string> entries() const { return entriesOf(folder.path()); }
};

inline const std::set<std::string> tableAlone = {"kt.txt", "t.txt"};

/// Copies every record.
inline BulkEnd copyAll(ZORMOD& zormod, BulkRoad road = BulkRoad::workFile) {
    return bulkRewrite(zormod, {.name = u"記録移動中", .road = road},
                       [](BulkRun& run) { run.copy(1, run.records()); });
}

/// Leaves out every third record.
inline BulkEnd dropEveryThird(ZORMOD& zormod) {
    return bulkRewrite(zormod, {.name = u"記録削除中"}, [](BulkRun& run) {
        for (std::int32_t record = 1; record <= run.records(); ++record) {
            if (record % 3 != 0 && !run.copy(record, record)) {
                return;
            }
        }
    });
}

/// Makes item 0 two bytes wider through the work files.
inline BulkEnd widenFirstItem(ZORMOD& zormod) {
    const int width = zormod.items.itemWidth[0];
    zormod.otherItems = zormod.items;
    zormod.otherItems.itemWidth[0] = static_cast<std::int16_t>(width + 2);
    return bulkRewrite(zormod, {.name = u"項目移動中", .items = BulkItems::other}, [&](BulkRun& run) {
        run.forEach(1, run.records(), [&](const Bytes& row) {
            Bytes wider = row.substr(0, static_cast<std::size_t>(width)) + "  ";
            wider += BytesView(row).substr(static_cast<std::size_t>(width));
            run.write(wider);
        });
    });
}

/// The same in place, with the open table's own items.
inline BulkEnd widenInPlace(ZORMOD& zormod) {
    const int width = zormod.items.itemWidth[0];
    zormod.items.itemWidth[0] = static_cast<std::int16_t>(width + 2);
    return bulkRewrite(
        zormod,
        {.name = u"データ書き換え中  中止不可", .items = BulkItems::own, .road = BulkRoad::inPlace, .canStop = false},
        [&](BulkRun& run) {
            run.forEach(1, run.records(), [&](const Bytes& row) {
                Bytes wider = row.substr(0, static_cast<std::size_t>(width)) + "  ";
                wider += BytesView(row).substr(static_cast<std::size_t>(width));
                run.write(wider);
            });
        });
}
