#include "structure/clip_file.h"

#include "edit/range_state.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/screen.h"
#include "sheet/cell.h"
#include "sheet/progress_rounds.h"
#include "sheet/read_ahead.h"
#include "sheet/record_file.h"
#include "sheet/text_file_writer.h"
#include "sheet/work_files.h"
#include "structure/range_questions.h"
#include "voice/speech_channel.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

/// The selection with its ends in order: while a range is being drawn they may stand the other way round.
Selection orderedSelection(const ZORMOD& zormod) {
    Selection range = zormod.selection;
    if (range.selRecordFrom > range.selRecordTo) {
        std::swap(range.selRecordFrom, range.selRecordTo);
    }
    if (range.selItemFrom > range.selItemTo) {
        std::swap(range.selItemFrom, range.selItemTo);
    }
    return range;
}

/// How many numbers from..to there are, then each of them.
void writeNumbers(TextFileWriter& file, std::int64_t from, std::int64_t to) {
    file.numberLine(to - from + 1);
    for (std::int64_t number = from; number <= to; ++number) {
        file.numberLine(number);
    }
}

/// Room for the cells of a range, and for a mark behind them: a text that grows as it is filled is copied again and again.
/// A range that is longer than most grows all the same.
Text roomFor(const ZORMOD& zormod, const Selection& range) {
    constexpr std::int64_t most = 1 << 24;
    const std::int64_t records = static_cast<std::int64_t>(range.selRecordTo) - range.selRecordFrom + 1;
    std::int64_t bytes = 0;
    for (std::int16_t item = range.selItemFrom; item <= range.selItemTo; ++item) {
        bytes += zormod.items.itemWidth[item];
    }
    Text cells;
    cells.reserve(static_cast<std::size_t>(std::clamp<std::int64_t>(records * bytes, 0, most)) +
                  zormod.speech.speechMark.size());
    return cells;
}

/// Writes the cells; gives them as one text, or nothing if the user has stopped it.
std::optional<Text> writeCells(ZORMOD& zormod, TextFileWriter& file, const Selection& range, ProgressRounds& rounds) {
    const ReadAheadScope ahead(zormod);
    Bytes& row = zormod.window.recordWindow[0];
    Text cells = roomFor(zormod, range);
    for (std::int32_t record = range.selRecordFrom; record <= range.selRecordTo; ++record) {
        if (!rounds.next(record)) {
            return {};
        }
        readRecord(zormod, 1, record, row);
        for (std::int16_t item = range.selItemFrom; item <= range.selItemTo; ++item) {
            appendCell(zormod, row, item, cells);
            file.quotedLine(cellBytes(zormod, row, item));
        }
    }
    return cells;
}

} // namespace

bool makeClip(ZORMOD& zormod) {
    if (zormod.selection.selectionKind == 0) {
        tellMissingRange(zormod, MissingRange::blockToClip);
        return false;
    }
    const auto claim = claimFolderOrTell(zormod, zormod.platform.files.currentFolder());
    if (!claim) {
        return false;
    }
    const Selection range = orderedSelection(zormod);
    ProgressRounds rounds(zormod, u"ｸﾘｯﾌﾟﾌｧｲﾙ作成中", true, range.selRecordTo);
    TextFileWriter file(zormod, 3, Text(clipFileName));
    writeNumbers(file, range.selRecordFrom, range.selRecordTo);
    writeNumbers(file, range.selItemFrom, range.selItemTo);
    std::optional<Text> cells = writeCells(zormod, file, range, rounds);
    file.putInPlace();
    zormod.platform.dialogs.closeProgress();
    zormod.results.answers[0] = 0.0;
    if (!cells) {
        return false;
    }
    keepUserClipboard(zormod);
    *cells += zormod.speech.speechMark;
    zormod.platform.clipboard.write(*cells);
    dropRange(zormod);
    zormod.platform.screen.redrawView();
    return true;
}
