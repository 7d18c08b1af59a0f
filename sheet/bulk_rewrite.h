#pragma once
// The rewrite of a whole table: a file of fixed records can't grow in the middle, so inserting, deleting or moving
// records or items copies it record by record to another file, which then takes its place. Every operation of that kind
// calls bulkRewrite with its own loop; form, percent, stop, failure, swap and what comes after are the same for all.
//
// The table stays as it was until the last record is written. Killed at any moment it is, at the next opening, the old
// pair of data file and K file or the new one. A run that fails takes its work file away; what a killed one has
// left goes at the next opening of a table on that drive or before the next run.

#include "sheet/progress_rounds.h"

#include <functional>

/// Where the new data file is written.
enum class BulkRoad {
    /// "WORK.QQQ" in the current folder of the table's drive. A leftover of that name that isn't ours is not emptied, and
    /// its tail stays behind a shorter result. What the old file has behind its last whole record is not copied.
    workFile,
    /// A hidden file beside the table, for operations that change the records in place: same bytes, but safe. What
    /// stands behind the last whole record stays.
    inPlace,
};

/// Which items the table has afterwards.
enum class BulkItems {
    kept,  ///< the same; the K file isn't touched
    other, ///< those of the other table, which the operation has filled: writeWorkItemFile, then read as the table's own
    own,   ///< those of the open table, which the operation has changed
};

/// What a run is to be.
struct BulkJob {
    Text name{}; ///< shown in the progress form; empty: no form, no turn of the event loop, no stop
    BulkItems items = BulkItems::kept;
    BulkRoad road = BulkRoad::workFile;
    bool canStop = true;
};

/// How it ended.
enum class BulkEnd {
    done,
    stopped, ///< by the user; the table is as it was
    refused, ///< the user has been told why; the table is as it was
};

/// The run as an operation's loop sees it.
class BulkRun {
public:
    /// Opens the progress form if the job has a name.
    BulkRun(ZORMOD& zormod, const BulkJob& job);

    /// Records of the table, from 1, when the run began.
    std::int32_t records() const { return records_; }
    /// A round for each record from..to: percent, turn of the event loop, stop test, then the record is read into slot 1
    /// and handed to `transform`, which writes what becomes of it: nothing, one record or more. from > to is no round.
    /// False if the run is stopped: the loop has nothing more to do then.
    bool forEach(std::int32_t from, std::int32_t to, const std::function<void(const Bytes& row)>& transform);
    /// forEach that writes every record by the record ending rule.
    bool copy(std::int32_t from, std::int32_t to);
    /// Writes the next record of the new file: the first 254 bytes of `row`, filled up with blanks, CR, LF.
    void write(BytesView row);
    /// Writes the next record as it is, filled up with blanks to 256 bytes, for rows that carry their line end earlier.
    void writeAsIs(BytesView rec);
    /// `times` rounds, numbered from 1, that read no record: for records that the operation makes itself. They count for
    /// nothing in the percentage. False if the run is stopped.
    bool repeat(std::int32_t times, const std::function<void(std::int32_t time)>& make);
    bool isStopped() const { return rounds_.isStopped(); }
    /// Records written so far.
    std::int32_t written() const { return written_; }

private:
    ZORMOD& zormod_;
    const std::int32_t records_;
    ProgressRounds rounds_;
    std::int32_t written_ = 0;
    Bytes record_;
};

/// Rewrites the open table: the caller has committed cell and row. `loop` writes the new records in their order; it
/// returns when run.forEach or run.copy say so. Afterwards the window is refilled, selection and `taskWord` are given up
/// and the title is right, also after a stop. A failure is thrown as it rises.
BulkEnd bulkRewrite(ZORMOD& zormod, const BulkJob& job, const std::function<void(BulkRun& run)>& loop);
