#pragma once
// The journal of a change in place: copying, moving, clearing or pasting over a span of records. The operation works on
// the journal, not on the table; only when its last record is done, and the journal is safely on the disk, the table is
// changed, and then the journal is taken away. So the table has the old bytes or the new ones at its next opening
// (sheet/change_recovery.h), whenever the run was killed. Used by changeInPlace alone. The format stands in
// sheet/change_frames.h.

#include "sheet/change_frames.h"

#include <vector>

/// One change of the open table. Every call throws RuntimeFailure of kind file on failure; until carryOut has made the
/// journal complete the table is untouched then. Memory doesn't grow with the spans.
class ChangeJournal {
public:
    /// Begins a change of records in `spans`; spans that meet or touch are taken as one, and at most two may be left. What
    /// an interrupted change has left is worked off first.
    ChangeJournal(ZORMOD& zormod, const std::vector<RecordSpan>& spans);
    /// Drops the change unless the journal is complete.
    ~ChangeJournal();
    ChangeJournal(const ChangeJournal&) = delete;
    ChangeJournal& operator=(const ChangeJournal&) = delete;

    /// The newest version of a record into `rec`, 256 bytes; NULs behind the end of the table. A record outside the
    /// spans is a subscript failure.
    void read(std::int32_t record, Bytes& rec);
    /// Stores a new version of 256 bytes.
    void write(std::int32_t record, BytesView rec);
    /// Changes the table. Returns when the new bytes are safely on the disk and the journal is gone; after a failure with
    /// the journal complete that is left to finishInterrupted.
    void carryOut();

private:
    struct CachedFrame {
        ChangeFrame frame{};
        bool isDirty = false;  ///< differs from what stands in the journal
        bool isStored = false; ///< stands there in some version
        std::uint64_t lastUse = 0;
    };

    CachedFrame& cached(std::int32_t record);
    void load(CachedFrame& cached, std::int32_t record);
    void store(CachedFrame& cached);
    void changeTable();
    Text path() const;

    ZORMOD& zormod_;
    ChangeHead head_;
    std::unique_ptr<BulkFile> journal_; ///< made when the first frame is stored
    std::array<CachedFrame, 4> cache_;  ///< enough for a source and a target at the edges of their frames
    std::uint64_t uses_ = 0;
    bool isComplete_ = false;
};
