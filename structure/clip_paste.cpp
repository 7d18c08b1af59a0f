#include "structure/clip_paste.h"

#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "sheet/cell.h"
#include "sheet/change_in_place.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/text_file_writer.h"
#include "sheet/work_files.h"
#include "structure/clip_file.h"
#include "structure/clip_source.h"
#include "structure/record_operations.h"

#include <algorithm>

namespace {

/// What stands in the clip file ahead of the cells.
struct ClipHead {
    std::int32_t records = 0;
    std::int32_t items = 0;
};

ClipHead readHead(ClipSource& clip) {
    ClipHead head;
    head.records = clip.number();
    clip.skip(head.records);
    head.items = clip.number();
    clip.skip(head.items);
    // A range has one of each at least: this is no clip file, or one that was cut short in its head.
    if (head.records < 1 || head.items < 1) {
        throw RuntimeFailure{FailureKind::file};
    }
    return head;
}

/// The records that `count` of them make from `first` on.
RecordSpan spanOf(std::int32_t first, std::int64_t count) {
    if (count <= 0) {
        return {};
    }
    const std::int64_t last = first + count - 1;
    if (last > INT32_MAX) {
        throw RuntimeFailure{FailureKind::overflow};
    }
    return {first, static_cast<std::int32_t>(last)};
}

std::unique_ptr<TableLock> claimClip(ZORMOD& zormod) {
    return claimFolderOrTell(zormod, zormod.platform.files.currentFolder());
}

/// The new backup, with the number of its first record.
class Backup {
public:
    Backup(ZORMOD& zormod, std::int32_t firstRecord) : file_(zormod, 4, Text(clipBackupName)) {
        file_.numberLine(firstRecord);
    }
    void add(BytesView row) { file_.quotedLine(row); }
    void putInPlace() { file_.putInPlace(); }

private:
    TextFileWriter file_;
};

/// Bytes from the first to the last item of a record.
std::size_t usedLength(const ItemTable& items) {
    return static_cast<std::size_t>(items.itemStart[items.itemCount] + items.itemWidth[items.itemCount] - 1);
}

/// Reads the cells of one record of the clip into slot 0; those without an item are dropped.
void pasteCells(ZORMOD& zormod, ClipSource& clip, std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) {
        const Text cell = clip.text();
        const std::int64_t item = static_cast<std::int64_t>(zormod.position.curItem) + i;
        if (item <= zormod.items.itemCount) {
            setScratch0Cell(zormod, cell, item);
        }
    }
}

/// The same, but the cells without an item are left to the next record.
void pasteCellsThatFit(ZORMOD& zormod, ClipSource& clip, std::int32_t count) {
    const std::int32_t room = zormod.items.itemCount - zormod.position.curItem + 1;
    pasteCells(zormod, clip, std::min(count, room));
}

} // namespace

void pasteOver(ZORMOD& zormod) {
    const auto claim = claimClip(zormod);
    auto clip = claim ? ClipSource::open(zormod, clipFileName) : nullptr;
    if (!clip) {
        return;
    }
    const ClipHead head = readHead(*clip);
    const RecordSpan span = spanOf(zormod.position.curRecord, head.records);
    Backup backup(zormod, zormod.position.curRecord);
    Bytes& row = zormod.window.recordWindow[0];
    const BulkEnd end = changeInPlace(
        zormod, {.name = u"上書き張り付け作業中", .spans = {span}}, [&](RecordChanges& run) {
            for (std::int64_t record = span.from; record <= span.to && run.nextRound(); ++record) {
                const auto target = static_cast<std::int32_t>(record);
                if (target <= run.records()) {
                    run.read(target, row);
                } else {
                    storeSlot(zormod, 0, zormod.window.blankLine);
                }
                backup.add(BytesView(row).substr(0, usedLength(zormod.items)));
                pasteCells(zormod, *clip, head.items);
                run.write(target, row);
            }
            // Ahead of the table: a backup that is newer than the table only puts back what is there.
            backup.putInPlace();
        });
    clip.reset();
    if (end == BulkEnd::stopped) {
        zormod.results.answers[0] = 1.0;
        undoPaste(zormod);
    }
}

bool pasteInsert(ZORMOD& zormod) {
    const auto claim = claimClip(zormod);
    const auto clip = claim ? ClipSource::open(zormod, clipFileName) : nullptr;
    if (!clip) {
        return false;
    }
    const ClipHead head = readHead(*clip);
    const std::int32_t first = zormod.position.curRecord;
    // The old backup's record numbers mean other rows once the table has new ones, and the new backup must not stand
    // beside a table that hasn't got them: it would blank rows of the user.
    removeIfThere(zormod, Text(clipBackupName));
    const auto makeRow = [&](std::int32_t) -> BytesView {
        storeSlot(zormod, 0, endedRecord(zormod.window.blankLine));
        pasteCellsThatFit(zormod, *clip, head.items);
        return zormod.window.recordWindow[0];
    };
    if (insertMadeRecords(zormod, head.records, makeRow) != BulkEnd::done) {
        return false;
    }
    Backup backup(zormod, first);
    storeSlot(zormod, 1, zormod.window.blankLine);
    ProgressRounds rounds(zormod, u"挿入張り付け作業中", false, head.records);
    for (std::int32_t i = 0; i < head.records; ++i) {
        rounds.next();
        backup.add(zormod.window.recordWindow[1]);
    }
    backup.putInPlace();
    zormod.platform.dialogs.closeProgress();
    zormod.results.answers[0] = 0.0;
    return true;
}

void undoPaste(ZORMOD& zormod) {
    if (isStopAsked(zormod)) {
        zormod.results.answers[0] = 0.0;
    } else if (zormod.platform.dialogs.askOkCancel(u"いちばん最近の貼り付け操作を取り消し,以前の状態に戻します",
                                                   u".張り付けの取り消し") != Answer::ok) {
        return;
    }
    const auto claim = claimClip(zormod);
    const auto backup = claim ? ClipSource::open(zormod, clipBackupName) : nullptr;
    if (!backup) {
        return;
    }
    const std::int32_t first = backup->number();
    std::int64_t rows = 0;
    for (; !backup->atEnd(); ++rows) {
        backup->skipLine();
    }
    // A backup of another table, or one that is none: a row far behind the end would leave a gap of NULs.
    if (rows > 0 && (first <= 0 || first - 1 > recordCount(zormod))) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    const RecordSpan span = spanOf(first, rows);
    backup->rewind();
    backup->skip(1);
    changeInPlace(zormod, {.name = u"張り付け撤去中", .spans = {span}, .canStop = false}, [&](RecordChanges& run) {
        for (std::int64_t record = span.from; record <= span.to; ++record) {
            run.nextRound();
            run.write(static_cast<std::int32_t>(record), zormod.platform.codePage.encode(backup->line()));
        }
    });
}
