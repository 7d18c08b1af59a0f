#include "sheet/cell.h"

#include "platform/code_page.h"
#include "platform/screen.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <algorithm>

namespace {

std::size_t widthOf(const ZORMOD& zormod, std::int64_t item) {
    const std::int16_t width = zormod.items.itemWidth[item];
    if (width < 0) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    return static_cast<std::size_t>(width);
}

/// Bytes ahead of the item.
std::size_t offsetOf(const ZORMOD& zormod, std::int64_t item) {
    const std::int16_t start = zormod.items.itemStart[item];
    if (start < 1) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    return static_cast<std::size_t>(start - 1);
}

BytesView trimmedBytes(BytesView bytes) {
    const std::size_t first = bytes.find_first_not_of(' ');
    return first == BytesView::npos ? BytesView() : bytes.substr(first, bytes.find_last_not_of(' ') - first + 1);
}

/// Puts encoded bytes into the item's cell of a slot.
void setSlotBytes(ZORMOD& zormod, std::int64_t slot, BytesView value, std::int64_t item) {
    Bytes& row = zormod.window.recordWindow[slot];
    const std::size_t offset = offsetOf(zormod, item);
    const std::size_t width = widthOf(zormod, item);
    Bytes changed;
    changed.reserve(row.size() + width);
    changed.append(row, 0, offset);
    // Only exactly "R" is right.
    appendAligned(changed, value, width, zormod.items.itemAlign[item] == u"R");
    // Behind the last item nothing is carried over, its line end included: the ending comes back when the record is
    // written, and whatever stood behind the items is blank from then on.
    if (item != zormod.items.itemCount) {
        const std::size_t next = offsetOf(zormod, item + 1);
        if (next < row.size()) {
            changed.append(row, next);
        }
    }
    // The row is decoded and encoded again as a whole: where a cut left half a character, it becomes one with the byte
    // that follows it if the two form a character, and duplicates in the code page become the canonical code.
    zormod.platform.codePage.canonicalize(changed);
    storeSlot(zormod, slot, changed);
}

} // namespace

void appendAligned(Bytes& row, BytesView value, std::size_t width, bool toRight) {
    const std::size_t blanks = width - std::min(width, value.size());
    const std::size_t kept = width - blanks;
    if (toRight) {
        row.append(blanks, ' ').append(value.substr(value.size() - kept));
    } else {
        row.append(value.substr(0, kept)).append(blanks, ' ');
    }
}

Text cellOf(const ZORMOD& zormod, BytesView rec, std::int64_t item) {
    Text cell;
    appendCell(zormod, rec, item, cell);
    return cell;
}

void appendCell(const ZORMOD& zormod, BytesView rec, std::int64_t item, Text& text) {
    zormod.platform.codePage.appendDecoded(text, cellBytes(zormod, rec, item));
}

BytesView cellBytes(const ZORMOD& zormod, BytesView rec, std::int64_t item) {
    const std::size_t offset = offsetOf(zormod, item);
    const std::size_t width = widthOf(zormod, item);
    return offset < rec.size() ? rec.substr(offset, width) : BytesView();
}

BytesView itemSpan(const ItemTable& items, BytesView rec, std::int16_t one, std::int16_t other, int more) {
    const auto [first, last] = std::minmax(one, other);
    const int start = items.itemStart[first];
    const int end = items.itemStart[last] + items.itemWidth[last];
    if (start < 1 || end < start || end > recordLength + 1) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    return rec.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(end - start + more));
}

Text getCell(const ZORMOD& zormod, std::int64_t item) {
    return cellOf(zormod, zormod.window.recordWindow[currentSlot(zormod)], item);
}

Text getScratchCell(const ZORMOD& zormod, std::int64_t item) {
    return cellOf(zormod, zormod.window.recordWindow[1], item);
}

Text getRecordCell(ZORMOD& zormod, std::int32_t recordNo, std::int64_t item) {
    readRecord(zormod, 1, recordNo, zormod.window.recordWindow[0]);
    return cellOf(zormod, zormod.window.recordWindow[0], item);
}

void setSlotCell(ZORMOD& zormod, std::int64_t slot, const Text& value, std::int64_t item) {
    setSlotBytes(zormod, slot, zormod.platform.codePage.encode(value), item);
}

void realignScratchCell(ZORMOD& zormod, std::int64_t item) {
    Bytes cell(cellBytes(zormod, zormod.window.recordWindow[1], item));
    zormod.platform.codePage.canonicalize(cell);
    setSlotBytes(zormod, 1, trimmedBytes(cell), item);
}

void setScratchCell(ZORMOD& zormod, const Text& value, std::int64_t item) {
    setSlotCell(zormod, 1, value, item);
}

void setScratch0Cell(ZORMOD& zormod, const Text& value, std::int64_t item) {
    setSlotCell(zormod, 0, value, item);
}

void commitCell(ZORMOD& zormod, const Text& boxText) {
    setSlotCell(zormod, currentSlot(zormod), boxText, zormod.position.curItem);
    zormod.platform.screen.redrawCurrentRow();
}

Text shownCell(const ZORMOD& zormod, BytesView rec, std::int64_t item) {
    Text cell = cellOf(zormod, rec, item);
    const bool onlySlashes = !cell.empty() && cell.find_first_not_of(u'/') == Text::npos;
    return onlySlashes ? Text(cell.size(), u' ') : cell;
}
