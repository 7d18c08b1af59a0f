#include "structure/cell_shift.h"

#include "sheet/cell.h"
#include "sheet/record_window.h"

namespace {

void moveCell(ZORMOD& zormod, std::int64_t from, std::int64_t to) {
    setSlotCell(zormod, currentSlot(zormod), trimmed(getCell(zormod, from)), to);
}

void blankCell(ZORMOD& zormod, std::int64_t item) { setSlotCell(zormod, currentSlot(zormod), {}, item); }

} // namespace

void shiftCellsRight(ZORMOD& zormod) {
    const std::int16_t current = zormod.position.curItem;
    for (std::int64_t item = zormod.items.itemCount; item > current; --item) {
        moveCell(zormod, item - 1, item);
    }
    blankCell(zormod, current);
}

void shiftCellsLeft(ZORMOD& zormod) {
    const std::int16_t last = zormod.items.itemCount;
    for (std::int64_t item = zormod.position.curItem; item < last; ++item) {
        moveCell(zormod, item + 1, item);
    }
    blankCell(zormod, last);
}
