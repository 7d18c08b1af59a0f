#include "sheet/record_window.h"

#include "platform/number_text.h"
#include "platform/screen.h"
#include "sheet/record_file.h"

#include <algorithm>

namespace {

/// Fills window row `row` with record `recordNo`, or with `beyond` past the end of the file.
void fillRow(ZORMOD& zormod, std::int32_t row, std::int32_t recordNo, std::int32_t records, BytesView beyond) {
    if (recordNo < 1 || recordNo > records) {
        storeSlot(zormod, rowSlot(row), beyond);
    } else {
        readRecord(zormod, 1, recordNo, zormod.window.recordWindow[rowSlot(row)]);
    }
}

bool holdsOnly(const Bytes& row, const Bytes& line) {
    return row.compare(0, dataLength, line) == 0;
}

/// True if record `recordNo` on the disk is exactly `record`.
bool standsOnDisk(ZORMOD& zormod, std::int32_t recordNo, const Bytes& record) {
    std::array<char, recordLength> stored;
    RandomFile& file = *zormod.files.byNumber[1];
    const std::int64_t offset = (static_cast<std::int64_t>(recordNo) - 1) * recordLength;
    return file.readAt(offset, stored.data(), stored.size()) == stored.size() &&
           std::equal(stored.begin(), stored.end(), record.begin());
}

/// False, and nothing is written: somebody else has cut the table so far that a gap would come ahead of the row.
bool writeCurrentRow(ZORMOD& zormod, std::int32_t record) {
    const Bytes& row = zormod.window.recordWindow[currentSlot(zormod)];
    const std::int32_t records = recordCount(zormod);
    if (record > records && (holdsOnly(row, zormod.window.slashLine) || holdsOnly(row, zormod.window.blankLine))) {
        return true;
    }
    if (record > records + std::int64_t{1}) {
        return false;
    }
    const Bytes ended = endedRecord(row);
    if (record == zormod.window.unsureRecord || !standsOnDisk(zormod, record, ended)) {
        writeRecord(zormod, 1, record, ended);
    }
    if (record >= records) {
        updateTitle(zormod);
    }
    return true;
}

} // namespace

std::int64_t currentSlot(const ZORMOD& zormod) {
    return static_cast<std::int64_t>(zormod.position.curRecord) - zormod.position.windowFirst + 2;
}

void storeSlot(ZORMOD& zormod, std::int64_t slot, BytesView rec) {
    Bytes& store = zormod.window.recordWindow[slot];
    store.assign(rec.substr(0, recordLength));
    store.resize(recordLength, ' ');
}

void refillWindow(ZORMOD& zormod, std::int32_t recordNo) {
    Position& position = zormod.position;
    position.windowFirst = std::max(1, recordNo - position.windowRows / 2 + 1);
    const std::int32_t records = recordCount(zormod);
    for (std::int32_t row = 1; row <= position.windowRows; ++row) {
        fillRow(zormod, row, position.windowFirst + row - 1, records, zormod.window.blankLine);
    }
}

void scrollWindowUp(ZORMOD& zormod) {
    Position& position = zormod.position;
    if (position.curRecord == 1 || position.windowFirst == 1) {
        return;
    }
    auto& window = zormod.window.recordWindow;
    Bytes first;
    readRecord(zormod, 1, position.windowFirst - 1, first);
    --position.windowFirst;
    for (std::int32_t row = position.windowRows; row > 1; --row) {
        window[rowSlot(row)].swap(window[rowSlot(row - 1)]);
    }
    window[rowSlot(1)].swap(first);
}

void commitRecord(ZORMOD& zormod) {
    const std::int32_t record = zormod.position.curRecord;
    std::int32_t& unsure = zormod.window.unsureRecord;
    bool hasPlace = true;
    try {
        hasPlace = writeCurrentRow(zormod, record);
    } catch (RuntimeFailure& failure) {
        // Also when nothing but a look at the file has failed: the row stays in the window, and the next leave writes it.
        failure.rowWrite = failure.kind == FailureKind::file;
        unsure = record;
        throw;
    }
    unsure = record == unsure ? 0 : unsure;
    if (!hasPlace) {
        // No failed row write: the row would wait for its place for ever. The table is read again as it is now.
        throw RuntimeFailure{FailureKind::file};
    }
}

void openDataFile(ZORMOD& zormod) {
    const Text path = fullPath(zormod.file.fileDrive, zormod.file.fileName);
    closeFile(zormod, 1);
    zormod.files.byNumber[1] = zormod.platform.files.openRandom(path);
    // A file that has only now been made could not be claimed before, and another program may have been quicker.
    auto lock = zormod.platform.files.lockTable(path);
    if (!lock) {
        closeFile(zormod, 1);
        throw RuntimeFailure{FailureKind::file};
    }
    zormod.files.tableLock = std::move(lock);
}

void fillFirstWindow(ZORMOD& zormod) {
    computeItemStart(zormod.items);
    Position& position = zormod.position;
    position.curRecord = 1;
    position.curItem = 0;
    position.windowFirst = 1;
    zormod.input.allItemsInput = 1;
    zormod.items.itemInputMark.fill(0);
    const std::int32_t records = recordCount(zormod);
    if (records > 0) {
        readRecord(zormod, 1, 1, zormod.window.recordWindow[1]);
    }
    for (std::int32_t row = 1; row <= position.windowRows; ++row) {
        fillRow(zormod, row, row, records, zormod.window.slashLine);
    }
    if (records == 0) {
        storeSlot(zormod, rowSlot(1), zormod.window.blankLine);
    }
}

void refreshAfterBulk(ZORMOD& zormod, int mode) {
    refillWindow(zormod, zormod.position.curRecord);
    zormod.taskWord.clear();
    if (mode != 1) {
        zormod.platform.screen.hideMask();
        zormod.selection.selectionKind = 0;
    }
    zormod.platform.screen.showCurrentCell();
    updateTitle(zormod);
}

void updateTitle(ZORMOD& zormod) {
    Text title = u"ロミカ (";
    title += fullPath(zormod.file.fileDrive, zormod.file.fileName);
    title += u"/記録数:";
    title += plainNumber(recordCount(zormod));
    title += u')';
    zormod.platform.screen.setTitle(title);
}
