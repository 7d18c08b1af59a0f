#include "edit/window_rows.h"

#include "sheet/record_window.h"

void useWindowRows(ZORMOD& zormod, std::int16_t rows) {
    if (rows == zormod.position.windowRows) {
        return;
    }
    if (!hasTable(zormod)) {
        zormod.position.windowRows = rows;
        return;
    }
    const Bytes currentRow = zormod.window.recordWindow[currentSlot(zormod)];
    zormod.position.windowRows = rows;
    refillWindow(zormod, zormod.position.curRecord);
    storeSlot(zormod, currentSlot(zormod), currentRow);
}
