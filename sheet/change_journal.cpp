#include "sheet/change_journal.h"

#include "platform/failure.h"
#include "sheet/record_file.h"
#include "sheet/swap_record.h"
#include "sheet/work_files.h"

#include <algorithm>

namespace {

/// In the order of the table, and those that meet or touch as one.
ChangeSpans merged(std::vector<RecordSpan> spans) {
    std::erase_if(spans, [](const RecordSpan& span) { return span.from > span.to; });
    std::sort(spans.begin(), spans.end(), [](const RecordSpan& a, const RecordSpan& b) { return a.from < b.from; });
    std::vector<RecordSpan> apart;
    for (const RecordSpan& span : spans) {
        if (!apart.empty() && span.from <= static_cast<std::int64_t>(apart.back().to) + 1) {
            apart.back().to = std::max(apart.back().to, span.to);
        } else {
            apart.push_back(span);
        }
    }
    ChangeSpans result{};
    if (apart.size() > result.size() || (!apart.empty() && apart.front().from < 1)) {
        throw RuntimeFailure{FailureKind::subscript};
    }
    std::copy(apart.begin(), apart.end(), result.begin());
    return result;
}

std::size_t offsetIn(const ChangeFrame& frame, std::int32_t record) {
    return static_cast<std::size_t>(record - frame.first) * recordLength;
}

} // namespace

ChangeJournal::ChangeJournal(ZORMOD& zormod, const std::vector<RecordSpan>& spans) : zormod_(zormod) {
    head_.spans = merged(spans);
    finishInterrupted(zormod_, zormod_.file.fileName, zormod_.file.fileDrive);
    head_.oldLength = head_.newLength = zormod_.files.byNumber[1]->length();
}

ChangeJournal::~ChangeJournal() {
    if (journal_ && !isComplete_) {
        journal_.reset();
        // Should it stay, it isn't whole, or the table has all of its old records: the next opening drops it.
        tidy([&] { zormod_.platform.files.remove(path()); });
    }
}

Text ChangeJournal::path() const { return changeJournalPath(zormod_.file.fileDrive, zormod_.file.fileName); }

void ChangeJournal::read(std::int32_t record, Bytes& rec) {
    const ChangeFrame& frame = cached(record).frame;
    rec.assign(frame.after, offsetIn(frame, record), recordLength);
}

void ChangeJournal::write(std::int32_t record, BytesView rec) {
    CachedFrame& target = cached(record);
    Bytes& after = target.frame.after;
    const std::size_t offset = offsetIn(target.frame, record);
    if (after.compare(offset, recordLength, rec) != 0) {
        after.replace(offset, recordLength, rec);
        target.isDirty = true;
        head_.newLength = std::max(head_.newLength, static_cast<std::int64_t>(record) * recordLength);
    }
}

ChangeJournal::CachedFrame& ChangeJournal::cached(std::int32_t record) {
    CachedFrame* found = cache_.data();
    for (CachedFrame& candidate : cache_) {
        const ChangeFrame& frame = candidate.frame;
        if (record >= frame.first && record - frame.first < frame.count) {
            found = &candidate;
            break;
        }
        found = candidate.lastUse < found->lastUse ? &candidate : found;
    }
    const ChangeFrame& frame = found->frame;
    if (record < frame.first || record - frame.first >= frame.count) {
        store(*found);
        load(*found, record);
    }
    found->lastUse = ++uses_;
    return *found;
}

void ChangeJournal::load(CachedFrame& cached, std::int32_t record) {
    ChangeFrame frame = frameAround(head_.spans, record);
    const FrameFound found = journal_ ? readFrame(*journal_, frame) : FrameFound::none;
    if (found == FrameFound::broken) {
        throw RuntimeFailure{FailureKind::file};
    }
    if (found == FrameFound::none) {
        frame.before = recordsNow(*zormod_.files.byNumber[1], frame);
        frame.after = frame.before;
    }
    cached.isStored = found == FrameFound::whole;
    cached.frame = std::move(frame);
}

void ChangeJournal::store(CachedFrame& cached) {
    if (!cached.isDirty) {
        return;
    }
    if (!journal_) {
        removeIfThere(zormod_, path());
        journal_ = zormod_.platform.files.openBulk(path());
    }
    if (cached.isStored) {
        head_.sum -= cached.frame.fingerprint;
    } else {
        ++head_.frames;
    }
    writeFrame(*journal_, cached.frame);
    head_.sum += cached.frame.fingerprint;
    cached.isStored = true;
    cached.isDirty = false;
}

void ChangeJournal::carryOut() {
    for (CachedFrame& cached : cache_) {
        store(cached);
    }
    if (!journal_) {
        return;
    }
    if (zormod_.files.byNumber[1]->length() != head_.oldLength) {
        // Somebody else has made it longer or shorter: what we have made of it may belong elsewhere now.
        throw RuntimeFailure{FailureKind::file};
    }
    writeHead(*journal_, head_);
    journal_->finish();
    isComplete_ = true;
    changeTable();
    journal_.reset();
    zormod_.platform.files.remove(path());
}

void ChangeJournal::changeTable() {
    // The first piece goes through file 1, which notices a table that was replaced behind our back, and it is the last of
    // the table, so that a file that can't grow is found while all the rest is still the old.
    RandomFile* table = zormod_.files.byNumber[1].get();
    std::unique_ptr<BulkFile> others;
    forEachFrame(head_.spans, [&](ChangeFrame& frame) {
        if (readFrame(*journal_, frame) == FrameFound::none) {
            return;
        }
        changeRecords(*table, frame);
        if (!others && head_.frames > 1) {
            others = zormod_.platform.files.openBulk(fullPath(zormod_.file.fileDrive, zormod_.file.fileName));
            table = others.get();
        }
    });
    if (others) {
        others->finish();
    }
}
