#include "edit/range_reading.h"

#include "platform/code_page.h"
#include "platform/number_text.h"
#include "sheet/cell.h"
#include "sheet/read_ahead.h"
#include "sheet/record_file.h"
#include "voice/announcement.h"
#include "voice/cell_reading.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

constexpr std::int16_t blockKind = 1;
constexpr std::int16_t recordKind = 2;

/// From this many bytes on the reading of a fixed range says that it is long. The message names another number.
constexpr std::size_t longReading = 51000;

Text fromTo(std::int32_t from, std::int32_t to) {
    return plainNumber(from) + u"から" + plainNumber(to);
}

Text statusText(const ZORMOD& zormod) {
    const Selection& range = zormod.selection;
    const Text record = u"ｷﾞｮｳ" + plainNumber(zormod.position.curRecord);
    const Text item = plainNumber(zormod.position.curItem);
    const Text data = trimmed(getCell(zormod, zormod.position.curItem));
    const Text cell = u"．今のセルデータは" + (data.empty() ? Text(u"ブランク") : data);
    const Text records = fromTo(range.selRecordFrom, range.selRecordTo);
    const Text items = fromTo(range.selItemFrom, range.selItemTo);
    switch (range.selectionKind) {
    case blockKind:
        // The word before the records has lost its first sign; users know it so.
        return record + u" ｺｳﾓｸ" + item + u" " + u".ﾀｲｶｸﾊﾝｲ指定中" + cell + u"．ﾞｮｳ" + records + u" および" + u".ｺｳﾓｸ" +
               items + u"のﾀｲｶｸﾊﾝｲ指定ずみ";
    case recordKind:
        return record + u".ｷﾞｮｳﾊﾝｲ指定中" + cell + u"．ｷﾞｮｳ" + records + u"指定ずみ";
    default:
        return u"ｺｳﾓｸ" + item + u".ｺｳﾓｸﾊﾝｲ指定中" + cell + u"．ｺｳﾓｸ" + items + u"指定ずみ";
    }
}

/// Hands each record first..last, as far as the file has it, to `use` with its number.
template <typename Use> void eachRecord(ZORMOD& zormod, std::int32_t first, std::int32_t last, Use use) {
    const ReadAheadScope ahead(zormod);
    last = std::min(last, recordCount(zormod));
    Bytes row;
    for (std::int32_t record = first; record <= last; ++record) {
        readRecord(zormod, 1, record, row);
        use(record, BytesView(row));
    }
}

Text dataText(ZORMOD& zormod) {
    const Selection& range = zormod.selection;
    const auto [first, last] = std::minmax({range.selRecordFrom, range.selRecordTo});
    Text text;
    eachRecord(zormod, first, last, [&](std::int32_t record, BytesView bytes) {
        text += u" ｷﾞｮｳ";
        text += plainNumber(record);
        text += u' ';
        text += zormod.platform.codePage.decode(itemSpan(zormod.items, bytes, range.selItemFrom, range.selItemTo));
    });
    return text;
}

TextView kindWords(std::int16_t kind) {
    if (kind == blockKind) {
        return u"たいかく範囲あり";
    }
    return kind == recordKind ? u"記録範囲あり" : u"項目範囲あり";
}

/// Collects the data of a fixed range, and says once when they have grown long.
class FixedRangeText {
public:
    explicit FixedRangeText(const ZORMOD& zormod)
        : zormod_(zormod), wholeRecords_(zormod.selection.selectionKind == recordKind) {}

    void add(BytesView record) {
        // One byte more than the items have: what stands right behind the range is heard with it.
        const Selection& range = zormod_.selection;
        const BytesView bytes = wholeRecords_ ? record.substr(0, dataLength)
                                              : itemSpan(zormod_.items, record, range.selItemFrom, range.selItemTo, 1);
        const CodePage& codePage = zormod_.platform.codePage;
        const Text part = trimmed(codePage.decode(bytes)) + u"次記録";
        text_ += part;
        length_ += codePage.byteLength(part);
        if (!wholeRecords_ && !isTold_ && length_ > longReading) {
            text_ += u"50000文字の読み込みバッファがオーバしました";
            isTold_ = true;
        }
    }

    const Text& text() const { return text_; }

private:
    const ZORMOD& zormod_;
    Text text_;
    bool wholeRecords_;
    std::size_t length_ = 0;
    bool isTold_ = false;
};

} // namespace

void RangeYOMi(ZORMOD& zormod, RangeReading reading) {
    switch (reading) {
    case RangeReading::status:
        return talkS(zormod, statusText(zormod));
    case RangeReading::cell:
        return readCellKey(zormod);
    case RangeReading::data:
        if (throttlePasses(zormod)) {
            sayText(zormod, dataText(zormod));
        }
    }
}

void Hread(ZORMOD& zormod) {
    if (!throttlePasses(zormod)) {
        return;
    }
    const Selection& range = zormod.selection;
    const bool wholeFile = range.selectionKind != blockKind && range.selectionKind != recordKind;
    const auto [first, last] = std::minmax({range.selRecordFrom, range.selRecordTo});
    FixedRangeText collected(zormod);
    eachRecord(zormod, wholeFile ? 1 : first, wholeFile ? INT32_MAX : last,
               [&](std::int32_t, BytesView record) { collected.add(record); });
    sayText(zormod, collected.text() + Text(kindWords(range.selectionKind)));
}
