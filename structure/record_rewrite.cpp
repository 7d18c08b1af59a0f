#include "structure/record_rewrite.h"

#include "sheet/record_file.h"
#include "structure/design_rewrite.h"

void rewriteRecords(TableDesign& design) {
    ZORMOD& zormod = design.zormod;
    const ItemTable made = itemsOf(design.rows);
    Bytes& record = zormod.window.recordWindow[1];
    const std::int32_t records = recordCount(zormod);
    for (std::int32_t number = 1; number <= records; ++number) {
        readRecord(zormod, 1, number, record);
        writeRecord(zormod, 1, number,
                    rewrittenRecord(zormod.platform.codePage, record, design.before.items, made));
    }
}
