#include "sheet/change_recovery.h"

#include "sheet/change_frames.h"
#include "sheet/record_file.h"
#include "sheet/work_files.h"

#include <algorithm>

namespace {

/// True if `now` begins as `one` and goes on as `other`.
bool changesOver(BytesView now, BytesView one, BytesView other) {
    const auto same = static_cast<std::size_t>(std::mismatch(now.begin(), now.end(), one.begin()).first - now.begin());
    return now.substr(same) == other.substr(same);
}

/// How the records of a table compare with those of a journal.
struct Comparison {
    bool isOld = true;
    bool isNew = true;
    bool isOurs = true;

    void look(BytesView now, BytesView before, BytesView after) {
        isOld = isOld && now == before;
        isNew = isNew && now == after;
        isOurs = isOurs && (changesOver(now, before, after) || changesOver(now, after, before));
    }
};

/// True if all frames that the head counts stand there whole.
bool isWhole(RandomFile& journal, const ChangeHead& head) {
    std::uint64_t frames = 0;
    std::uint64_t sum = 0;
    bool anyBroken = false;
    forEachFrame(head.spans, [&](ChangeFrame& frame) {
        const FrameFound found = anyBroken ? FrameFound::broken : readFrame(journal, frame);
        anyBroken = found == FrameFound::broken;
        frames += found == FrameFound::whole ? 1 : 0;
        sum += found == FrameFound::whole ? frame.fingerprint : 0;
    });
    return !anyBroken && frames == head.frames && sum == head.sum;
}

Comparison compare(RandomFile& journal, const ChangeHead& head, RandomFile& table) {
    Comparison comparison;
    const std::int64_t length = table.length();
    comparison.isOld = length == head.oldLength;
    comparison.isNew = length == head.newLength;
    comparison.isOurs = length >= head.oldLength && length <= head.newLength;
    forEachFrame(head.spans, [&](ChangeFrame& frame) {
        if (!comparison.isOurs || readFrame(journal, frame) == FrameFound::none) {
            return;
        }
        const Bytes now = recordsNow(table, frame);
        for (std::size_t at = 0; at < now.size(); at += recordLength) {
            comparison.look(BytesView(now).substr(at, recordLength), BytesView(frame.before).substr(at, recordLength),
                            BytesView(frame.after).substr(at, recordLength));
        }
    });
    return comparison;
}

/// What came of a journal.
enum class Outcome {
    finished,
    unsure, ///< the table is whole, but whether that is on the disk can't be said
    another ///< the table is another one by now, and so untouched
};

void writeAll(RandomFile& journal, const ChangeHead& head, BulkFile& table, bool asBefore) {
    forEachFrame(head.spans, [&](ChangeFrame& frame) {
        if (readFrame(journal, frame) != FrameFound::whole) {
            return;
        }
        if (asBefore) {
            putRecordsBack(table, frame, head.oldLength);
        } else {
            changeRecords(table, frame);
        }
    });
    table.finish();
}

/// Puts the table right.
Outcome finishOn(ZORMOD& zormod, RandomFile& journal, const ChangeHead& head, const Text& tablePath) {
    if (!zormod.platform.files.exists(tablePath)) {
        return Outcome::another;
    }
    const auto table = zormod.platform.files.openBulk(tablePath);
    const Comparison comparison = compare(journal, head, *table);
    if (!comparison.isOurs) {
        return Outcome::another;
    }
    try {
        // Also what looks whole: after a sync that failed, or a kill ahead of it, the system may hold in memory what the
        // disk hasn't got, and without the journal a power cut would leave a mixture that nobody knows of.
        writeAll(journal, head, *table, comparison.isOld);
    } catch (const RuntimeFailure&) {
        if (!comparison.isOld && !comparison.isNew) {
            throw;
        }
        return Outcome::unsure; // such as a table that may only be read; the journal stays for the next time
    }
    return Outcome::finished;
}

} // namespace

void finishChange(ZORMOD& zormod, const Text& fileName, const Text& drive) {
    Files& files = zormod.platform.files;
    const Text path = changeJournalPath(drive, fileName);
    if (!files.exists(path)) {
        return;
    }
    Outcome outcome = Outcome::finished;
    {
        const auto journal = files.openBulk(path);
        const auto head = readHead(*journal);
        if (head && isWhole(*journal, *head)) {
            outcome = finishOn(zormod, *journal, *head, fullPath(drive, fileName));
        }
    }
    if (outcome == Outcome::finished) {
        tidy([&] { files.remove(path); });
    } else if (outcome == Outcome::another) {
        setAside(zormod, path, besideTable(drive, fileName, u".unused-change-"));
    }
}
