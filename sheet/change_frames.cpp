#include "sheet/change_frames.h"

#include "platform/failure.h"
#include "sheet/stored_numbers.h"

#include <algorithm>
#include <utility>

namespace {

constexpr BytesView magic = "ROMEDIT1";
constexpr std::size_t headLength = magic.size() + 9 * numberLength;
constexpr std::size_t frameHeadLength = 3 * numberLength;
constexpr std::int64_t recordsInFrame = 256;

std::int64_t recordsIn(const RecordSpan& span) { return static_cast<std::int64_t>(span.to) - span.from + 1; }

std::int64_t framesIn(const RecordSpan& span) { return (recordsIn(span) + recordsInFrame - 1) / recordsInFrame; }

/// Bytes of so many frames that hold so many records.
std::int64_t journalLength(std::int64_t frames, std::int64_t records) {
    return frames * static_cast<std::int64_t>(frameHeadLength) + records * 2 * recordLength;
}

ChangeFrame frameAt(const RecordSpan& span, std::int64_t spanPlace, std::int64_t index) {
    const std::int64_t ahead = index * recordsInFrame;
    ChangeFrame frame;
    frame.first = static_cast<std::int32_t>(span.from + ahead);
    frame.count = static_cast<std::int32_t>(std::min(recordsInFrame, recordsIn(span) - ahead));
    frame.place = spanPlace + journalLength(index, ahead);
    return frame;
}

/// Byte of the journal at which the frames of span `index` begin.
std::int64_t placeOf(const ChangeSpans& spans, std::size_t index) {
    std::int64_t place = headLength;
    for (std::size_t i = 0; i < index; ++i) {
        place += journalLength(framesIn(spans[i]), recordsIn(spans[i]));
    }
    return place;
}

Bytes frameHead(const ChangeFrame& frame) {
    Bytes head;
    appendNumber(head, static_cast<std::uint64_t>(frame.first));
    appendNumber(head, static_cast<std::uint64_t>(frame.count));
    return head;
}

std::uint64_t fingerprintOfFrame(const ChangeFrame& frame) {
    return fingerprintOf(frame.after, fingerprintOf(frame.before, fingerprintOf(frameHead(frame))));
}

std::size_t bytesOf(const ChangeFrame& frame) { return static_cast<std::size_t>(frame.count) * recordLength; }

std::int64_t offsetOf(const ChangeFrame& frame) { return (static_cast<std::int64_t>(frame.first) - 1) * recordLength; }

/// Where in the frame the first changed record begins and the last one ends, in bytes.
std::pair<std::size_t, std::size_t> changedPart(const ChangeFrame& frame) {
    const auto differs = [&](std::size_t at) {
        return frame.after.compare(at, recordLength, frame.before, at, recordLength) != 0;
    };
    std::size_t from = 0;
    std::size_t end = bytesOf(frame);
    while (from < end && !differs(from)) {
        from += recordLength;
    }
    while (from < end && !differs(end - recordLength)) {
        end -= recordLength;
    }
    return {from, end};
}

/// Writes `records`, the first ones of the frame, from byte `from` on.
void write(RandomFile& table, const ChangeFrame& frame, BytesView records, std::size_t from) {
    if (from < records.size()) {
        table.writeDurably(offsetOf(frame) + static_cast<std::int64_t>(from), records.substr(from));
    }
}

} // namespace

void writeHead(RandomFile& journal, const ChangeHead& head) {
    Bytes bytes(magic);
    appendNumber(bytes, static_cast<std::uint64_t>(head.oldLength));
    appendNumber(bytes, static_cast<std::uint64_t>(head.newLength));
    for (const RecordSpan& span : head.spans) {
        appendNumber(bytes, static_cast<std::uint64_t>(span.from));
        appendNumber(bytes, static_cast<std::uint64_t>(span.to));
    }
    appendNumber(bytes, head.frames);
    appendNumber(bytes, head.sum);
    appendNumber(bytes, fingerprintOf(bytes));
    journal.writeDurably(0, bytes);
}

std::optional<ChangeHead> readHead(RandomFile& journal) {
    Bytes bytes(headLength, '\0');
    if (journal.readAt(0, bytes.data(), bytes.size()) != bytes.size() || !BytesView(bytes).starts_with(magic) ||
        numberAt(bytes, headLength - numberLength) !=
            fingerprintOf(BytesView(bytes).substr(0, headLength - numberLength))) {
        return std::nullopt;
    }
    std::size_t at = magic.size();
    const auto next = [&] { return numberAt(bytes, std::exchange(at, at + numberLength)); };
    ChangeHead head;
    head.oldLength = static_cast<std::int64_t>(next());
    head.newLength = static_cast<std::int64_t>(next());
    for (RecordSpan& span : head.spans) {
        span.from = static_cast<std::int32_t>(next());
        span.to = static_cast<std::int32_t>(next());
    }
    head.frames = next();
    head.sum = next();
    return head;
}

ChangeFrame frameAround(const ChangeSpans& spans, std::int32_t record) {
    for (std::size_t i = 0; i < spans.size(); ++i) {
        if (record >= spans[i].from && record <= spans[i].to) {
            return frameAt(spans[i], placeOf(spans, i), (record - spans[i].from) / recordsInFrame);
        }
    }
    throw RuntimeFailure{FailureKind::subscript};
}

void forEachFrame(const ChangeSpans& spans, const std::function<void(ChangeFrame&)>& use) {
    for (std::size_t i = spans.size(); i > 0; --i) {
        const RecordSpan& span = spans[i - 1];
        for (std::int64_t index = framesIn(span); index > 0; --index) {
            ChangeFrame frame = frameAt(span, placeOf(spans, i - 1), index - 1);
            use(frame);
        }
    }
}

void writeFrame(RandomFile& journal, ChangeFrame& frame) {
    frame.fingerprint = fingerprintOfFrame(frame);
    Bytes bytes = frameHead(frame);
    appendNumber(bytes, frame.fingerprint);
    bytes += frame.before;
    bytes += frame.after;
    journal.writeDurably(frame.place, bytes);
}

FrameFound readFrame(RandomFile& journal, ChangeFrame& frame) {
    Bytes head(frameHeadLength, '\0');
    journal.readAt(frame.place, head.data(), head.size());
    if (head == Bytes(frameHeadLength, '\0')) {
        return FrameFound::none;
    }
    frame.fingerprint = numberAt(head, 2 * numberLength);
    frame.before.assign(bytesOf(frame), '\0');
    frame.after.assign(bytesOf(frame), '\0');
    const std::int64_t records = frame.place + static_cast<std::int64_t>(frameHeadLength);
    journal.readAt(records, frame.before.data(), frame.before.size());
    journal.readAt(records + static_cast<std::int64_t>(bytesOf(frame)), frame.after.data(), frame.after.size());
    const bool isWhole = head.starts_with(frameHead(frame)) && fingerprintOfFrame(frame) == frame.fingerprint;
    return isWhole ? FrameFound::whole : FrameFound::broken;
}

Bytes recordsNow(RandomFile& table, const ChangeFrame& frame) {
    Bytes records(bytesOf(frame), '\0');
    table.readAt(offsetOf(frame), records.data(), records.size());
    return records;
}

void changeRecords(RandomFile& table, const ChangeFrame& frame) {
    const auto [from, end] = changedPart(frame);
    write(table, frame, BytesView(frame.after).substr(0, end), from);
}

void putRecordsBack(RandomFile& table, const ChangeFrame& frame, std::int64_t oldLength) {
    const auto [from, end] = changedPart(frame);
    const auto wereThere = static_cast<std::size_t>(std::max<std::int64_t>(0, oldLength - offsetOf(frame)));
    write(table, frame, BytesView(frame.before).substr(0, std::min(end, wereThere)), from);
}
