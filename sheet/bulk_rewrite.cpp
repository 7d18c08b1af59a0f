#include "sheet/bulk_rewrite.h"

#include "platform/dialogs.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "sheet/work_files.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t largestItemFile = 16u << 20;

/// The files of one run. The table's own open file is kept aside and comes back unless the swap has taken its place. A run
/// that fails before the swap takes its new files away.
class BulkFiles {
public:
    BulkFiles(ZORMOD& zormod, const BulkJob& job) : zormod_(zormod), job_(job) {}
    ~BulkFiles() {
        closeFile(zormod_, 2);
        if (table_) {
            zormod_.files.byNumber[1] = std::move(table_);
        }
        if (isWaste_) {
            tidy([&] { clear(); });
        }
    }
    BulkFiles(const BulkFiles&) = delete;
    BulkFiles& operator=(const BulkFiles&) = delete;

    /// False: another copy is at work; the user has been told.
    bool open();
    void copyTail(std::int32_t written);
    /// The new files in place of the old ones. False: the new K file can't be written; the user has been told.
    bool swap();
    /// Takes the new files away; the table's own file is open again.
    void giveUp();

private:
    bool usesWorkFile() const { return job_.road == BulkRoad::workFile; }
    const Text& drive() const { return zormod_.file.fileDrive; }
    const Text& name() const { return zormod_.file.fileName; }
    Text newPath() const { return usesWorkFile() ? workFilePath(drive()) : newFilePath(drive(), name()); }
    Bytes newItems() const;
    void putDataInPlace();
    void putItemsInPlace();
    void clear();

    ZORMOD& zormod_;
    const BulkJob& job_;
    std::unique_ptr<TableLock> claim_;
    std::unique_ptr<RandomFile> table_;
    BulkFile* in_ = nullptr;
    BulkFile* out_ = nullptr;
    bool isWaste_ = false; ///< what the new files hold is of no use to anybody
    std::int64_t oldLength_ = 0; ///< bytes of the table when the run began
};

bool BulkFiles::open() {
    Files& files = zormod_.platform.files;
    expectTableInPlace(zormod_);
    finishInterrupted(zormod_, name(), drive());
    if (usesWorkFile()) {
        claim_ = claimFolderOrTell(zormod_, fullPath(drive(), {}));
        if (!claim_) {
            return false;
        }
        clearWorkFiles(zormod_, drive());
        isWaste_ = true;
        markWorkFiles(zormod_, drive());
    } else {
        removeIfThere(zormod_, newPath());
        isWaste_ = true;
    }
    auto in = files.openBulk(fullPath(drive(), name()));
    auto out = files.openBulk(newPath());
    in_ = in.get();
    oldLength_ = in_->length();
    out_ = out.get();
    table_ = std::exchange(zormod_.files.byNumber[1], std::move(in));
    zormod_.files.byNumber[2] = std::move(out);
    return true;
}

void BulkFiles::copyTail(std::int32_t written) {
    if (usesWorkFile()) {
        return;
    }
    Bytes tail(recordLength, '\0');
    const std::int64_t from = in_->length() / recordLength * recordLength;
    tail.resize(in_->readAt(from, tail.data(), tail.size()));
    if (!tail.empty()) {
        out_->writeDurably(static_cast<std::int64_t>(written) * recordLength, tail);
    }
}

Bytes BulkFiles::newItems() const {
    const ItemTable& items = job_.items == BulkItems::other ? zormod_.otherItems : zormod_.items;
    return itemFileBytes(zormod_, items, items.itemCount);
}

bool BulkFiles::swap() {
    if (job_.items == BulkItems::other) {
        writeWorkItemFile(zormod_, zormod_.otherItems.itemCount);
        if (!zormod_.writeFlag.empty()) {
            return false; // and file 2 is closed: out_ is gone
        }
    }
    out_->finish();
    // If the table was replaced behind our back, or has grown or shrunk, what we have read is not what we would put away.
    in_->finish();
    if (in_->length() != oldLength_) {
        throw RuntimeFailure{FailureKind::file};
    }
    if (job_.items != BulkItems::kept) {
        Files& files = zormod_.platform.files;
        const Text itemPath = itemFilePath(zormod_, name());
        const Bytes oldItems = files.readWhole(itemPath, largestItemFile);
        // Not when the new data file stands in its place already: then no opening could finish the swap.
        files.expectReplaceable(itemPath);
        writeSwapRecord(zormod_, name(), drive(),
                        {.newLength = static_cast<std::uint64_t>(out_->length()),
                         .newFingerprint = fingerprintOf(*out_),
                         .oldLength = static_cast<std::uint64_t>(oldLength_),
                         .oldSample = sampleOf(*in_),
                         .oldItems = oldItems,
                         .newItems = newItems()});
    }
    isWaste_ = false;
    putDataInPlace();
    if (job_.items != BulkItems::kept) {
        putItemsInPlace();
        removeSwapRecord(zormod_, name(), drive());
    }
    clear();
    return true;
}

void BulkFiles::putDataInPlace() {
    table_.reset();
    closeFile(zormod_, 1);
    closeFile(zormod_, 2);
    zormod_.files.tableLock = zormod_.platform.files.moveIntoPlace(newPath(), fullPath(drive(), name()));
}

void BulkFiles::putItemsInPlace() {
    Files& files = zormod_.platform.files;
    const Text path = itemFilePath(zormod_, name());
    if (job_.items == BulkItems::other) {
        files.moveIntoPlace(workItemFilePath(drive()), path);
    } else {
        files.replaceWhole(path, newItems());
    }
}

void BulkFiles::giveUp() {
    closeFile(zormod_, 2);
    zormod_.files.byNumber[1] = std::move(table_);
    isWaste_ = false;
    clear();
}

void BulkFiles::clear() {
    if (usesWorkFile()) {
        clearWorkFiles(zormod_, drive());
    } else {
        removeIfThere(zormod_, newPath());
    }
}

void takeUpNewTable(ZORMOD& zormod, BulkItems items) {
    if (items == BulkItems::other &&
        !readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive).empty()) {
        throw RuntimeFailure{.kind = FailureKind::file, .isTold = true}; // the refusal has told the user
    }
    openDataFile(zormod);
    computeItemStart(zormod.items);
    zormod.position.curItem = std::min(zormod.position.curItem, zormod.items.itemCount);
}

/// Everything behind the swap or the stop.
void comeBack(ZORMOD& zormod) {
    zormod.results.answers[0] = 0.0;
    zormod.selection = {};
    zormod.platform.dialogs.closeProgress();
    Position& position = zormod.position;
    position.curRecord = std::min(position.curRecord, recordCount(zormod));
    if (position.curRecord <= 0) {
        position.curRecord = 1;
        position.windowFirst = 1;
    }
    refreshAfterBulk(zormod, 0);
}

} // namespace

BulkRun::BulkRun(ZORMOD& zormod, const BulkJob& job)
    : zormod_(zormod), records_(recordCount(zormod)), rounds_(zormod, job.name, job.canStop, records_) {}

bool BulkRun::forEach(std::int32_t from, std::int32_t to, const std::function<void(const Bytes&)>& transform) {
    Bytes& row = zormod_.window.recordWindow[1];
    for (std::int32_t record = from; record <= to && rounds_.next(); ++record) {
        readRecord(zormod_, 1, record, row);
        transform(row);
    }
    return !isStopped();
}

bool BulkRun::repeat(std::int32_t times, const std::function<void(std::int32_t)>& make) {
    for (std::int32_t time = 0; time < times && rounds_.turn();) {
        make(++time);
    }
    return !isStopped();
}

bool BulkRun::copy(std::int32_t from, std::int32_t to) {
    return forEach(from, to, [this](const Bytes& row) { write(row); });
}

void BulkRun::write(BytesView row) {
    endRecord(row, record_);
    writeRecord(zormod_, 2, ++written_, record_);
}

void BulkRun::writeAsIs(BytesView rec) {
    record_.assign(rec.substr(0, recordLength));
    record_.resize(recordLength, ' ');
    writeRecord(zormod_, 2, ++written_, record_);
}

BulkEnd bulkRewrite(ZORMOD& zormod, const BulkJob& job, const std::function<void(BulkRun&)>& loop) {
    BulkEnd end = BulkEnd::done;
    {
        BulkFiles files(zormod, job);
        if (!files.open()) {
            return BulkEnd::refused;
        }
        BulkRun run(zormod, job);
        loop(run);
        if (run.isStopped()) {
            end = BulkEnd::stopped;
        } else {
            files.copyTail(run.written());
            end = files.swap() ? BulkEnd::done : BulkEnd::refused;
        }
        if (end != BulkEnd::done) {
            files.giveUp();
        }
    }
    if (end == BulkEnd::done) {
        takeUpNewTable(zormod, job.items);
    }
    comeBack(zormod);
    return end;
}
