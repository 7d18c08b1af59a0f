#include "structure/record_rewrite.h"

#include "sheet/bulk_rewrite.h"
#include "structure/design_rewrite.h"

bool rewriteRecords(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    zormod.items = itemsOf(design.rows, design.before.items);
    zormod.file.tableMemo = trimmed(design.text2);
    const BulkJob job{.items = BulkItems::own, .road = BulkRoad::inPlace, .canStop = false};
    return bulkRewrite(zormod, job, [&](BulkRun& run) {
               run.forEach(1, run.records(), [&](const Bytes& row) {
                   run.write(rewrittenRecord(zormod.platform.codePage, row, design.before.items, zormod.items));
               });
           }) == BulkEnd::done;
}
