#include "sheet/change_in_place.h"

#include "platform/dialogs.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <algorithm>
#include <numeric>

namespace {

std::int32_t roundsOf(const ChangeJob& job) {
    return std::accumulate(job.spans.begin(), job.spans.end(), std::int32_t{0},
                           [](std::int32_t sum, const RecordSpan& span) {
                               return sum + std::max(0, span.to - span.from + 1);
                           });
}

} // namespace

RecordChanges::RecordChanges(ZORMOD& zormod, ChangeJournal& journal, const ChangeJob& job)
    : journal_(journal), records_(recordCount(zormod)), rounds_(zormod, job.name, job.canStop, roundsOf(job)) {}

void RecordChanges::write(std::int32_t record, BytesView row) {
    endRecord(row, record_);
    journal_.write(record, record_);
}

BulkEnd changeInPlace(ZORMOD& zormod, const ChangeJob& job, const std::function<void(RecordChanges&)>& loop) {
    BulkEnd end = BulkEnd::done;
    {
        ChangeJournal journal(zormod, job.spans);
        RecordChanges run(zormod, journal, job);
        loop(run);
        if (run.isStopped()) {
            end = BulkEnd::stopped;
        } else {
            journal.carryOut();
        }
    }
    zormod.results.answers[0] = 0.0;
    zormod.platform.dialogs.closeProgress();
    refreshAfterBulk(zormod, 0);
    return end;
}
