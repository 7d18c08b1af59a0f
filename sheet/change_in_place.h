#pragma once
// A change of some records of the table where they stand: copying and moving blocks, clearing, pasting over. Every
// operation of that kind calls changeInPlace with its own loop; form, percent, stop, failure, safety and what comes after
// are the same for all.
//
// The table stays as it was until the last record is done. Killed at any moment, also with writes lost or torn, it has
// the old bytes or the new ones at its next opening; stopped or failed, the old ones, unless the failure came when the
// table itself was being changed, and then the new ones.

#include "sheet/bulk_rewrite.h"
#include "sheet/change_journal.h"

#include <functional>

/// What a change is to be.
struct ChangeJob {
    Text name{}; ///< shown in the progress form; empty: no form, no turn of the event loop, no stop
    /// Where the records are that may be read or written: one span or two, such as source and target. They may meet, and
    /// may reach past the end of the table. All of them together are 100 percent.
    std::vector<RecordSpan> spans;
    bool canStop = true;
};

/// The change as an operation's loop sees it.
class RecordChanges {
public:
    /// Opens the progress form if the job has a name.
    RecordChanges(ZORMOD& zormod, ChangeJournal& journal, const ChangeJob& job);

    /// Records of the table, from 1, when the change began.
    std::int32_t records() const { return records_; }
    /// To be called at the start of each round: percent, turn of the event loop, stop test. False if the change is
    /// stopped: the loop has nothing more to do then.
    bool nextRound() { return rounds_.next(); }
    /// The newest version of a record into `rec`, 256 bytes; NULs behind the end. Outside the spans a subscript failure.
    void read(std::int32_t record, Bytes& rec) { journal_.read(record, rec); }
    /// What becomes of a record: the first 254 bytes of `row`, filled up with blanks, CR, LF. Behind the end the table
    /// grows. Outside the spans a subscript failure.
    void write(std::int32_t record, BytesView row);
    bool isStopped() const { return rounds_.isStopped(); }

private:
    ChangeJournal& journal_;
    const std::int32_t records_;
    ProgressRounds rounds_;
    Bytes record_;
};

/// Changes the open table: the caller has committed cell and row. BulkEnd::done or stopped. Afterwards the window is
/// refilled, the selection and `taskWord` are given up and the title is right, also after a stop. A failure is thrown as
/// it rises.
BulkEnd changeInPlace(ZORMOD& zormod, const ChangeJob& job, const std::function<void(RecordChanges& run)>& loop);
