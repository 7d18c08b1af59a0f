#include "structure/record_operations.h"

#include "edit/range_state.h"
#include "platform/number_text.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "structure/clip_file.h"
#include "voice/speech_channel.h"

#include <algorithm>

BulkEnd insertRecords(ZORMOD& zormod, std::int32_t count) {
    return insertMadeRecords(zormod, count, [&](std::int32_t) { return BytesView(zormod.window.blankLine); });
}

BulkEnd insertMadeRecords(ZORMOD& zormod, std::int32_t count, const std::function<BytesView(std::int32_t)>& make) {
    zormod.input.idAutoOn = 0;
    if (count > INT32_MAX - recordCount(zormod)) {
        throw RuntimeFailure{FailureKind::overflow};
    }
    const std::int32_t place = zormod.position.curRecord;
    const BulkEnd end = bulkRewrite(zormod, {.name = u"行挿入中"}, [&](BulkRun& run) {
        run.copy(1, place - 1);
        run.repeat(count, [&](std::int32_t time) { run.write(make(time)); });
        run.copy(place, run.records());
    });
    if (end == BulkEnd::done) {
        sayText(zormod, Str(count) + u"業挿入されました。");
    }
    return end;
}

BulkEnd deleteRecords(ZORMOD& zormod, std::int32_t from, std::int32_t to) {
    const auto [first, last] = std::minmax(from, to);
    zormod.selection = {.selectionKind = 2,
                        .selRecordFrom = first,
                        .selRecordTo = last,
                        .selItemFrom = 0,
                        .selItemTo = zormod.items.itemCount};
    if (!makeClip(zormod)) {
        dropRange(zormod);
        refreshAfterBulk(zormod, 0);
        return BulkEnd::stopped;
    }
    return bulkRewrite(zormod, {.name = u"記録削除中"}, [&, first = first, last = last](BulkRun& run) {
        run.copy(1, first - 1);
        run.copy(last + 1, run.records());
    });
}

BulkEnd moveRecords(ZORMOD& zormod, std::int32_t from, std::int32_t to, std::int32_t pointer) {
    const auto [first, last] = std::minmax(from, to);
    if (pointer >= first && pointer <= last) {
        return BulkEnd::done;
    }
    zormod.taskWord = u"work";
    return bulkRewrite(zormod, {.name = u"記録移動中"}, [&, first = first, last = last](BulkRun& run) {
        if (pointer < first) {
            run.copy(1, pointer - 1);
            run.copy(first, last);
            run.copy(pointer, first - 1);
            run.copy(last + 1, run.records());
        } else {
            run.copy(1, first - 1);
            run.copy(last + 1, pointer - 1);
            run.copy(first, last);
            run.copy(pointer, run.records());
        }
        zormod.taskWord = u"moverecord";
    });
}
