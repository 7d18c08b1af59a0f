#include "fuzz/recovery_targets.h"

#include "fuzz/fuzz_input.h"
#include "fuzz/fuzz_world.h"
#include "fuzz/target_groups.h"

#include "sheet/change_frames.h"
#include "sheet/record_file.h"
#include "sheet/swap_record.h"
#include "support/memory_files.h"

#include <algorithm>
#include <vector>

namespace {

constexpr BytesView rawMark = "raw:";
constexpr BytesView oneItem = "100  ' 0,memo,, 0\r\n1000 'ID,L\r\n2000 ' 4\r\n";

/// What every opening of "t.txt" does first. Nothing in these targets gives it a reason to fail.
void recover(ZORMOD& zormod) {
    const Text path = zormod.file.programFolder + u"t.txt";
    recoverTable(zormod, path.substr(2), path.substr(0, 1));
}

bool isThere(TestWorld& here, TextView name) {
    return here.files.exists(here.zormod.file.programFolder + Text(name));
}

/// A file of that name beside a table: any bytes at all, and so none of ours. The data file stays; a K file that takes the
/// place of the old one, which only the right fingerprint of the data file brings about, stands at the end of the bytes.
Recovered openBeside(BytesView bytes, const char* name) {
    TestWorld& here = freshWorld();
    const std::string records(5 * recordLength, 'a');
    here.writeFile("t.txt", records);
    here.writeFile("kt.txt", oneItem);
    here.writeFile(name, bytes);
    recover(here.zormod);
    const Bytes items = here.bytesOf("kt.txt");
    mustHold(here.bytesOf("t.txt") == records && (items == oneItem || bytes.ends_with(items)));
    return here.dialogs.messages.empty() ? Recovered::asFound : Recovered::setAside;
}

Bytes rowOf(char fill) { return endedRecord(Bytes(dataLength, fill)); }

/// Byte of a table at which a record begins.
std::size_t offsetOf(std::int32_t record) { return static_cast<std::size_t>(record - 1) * recordLength; }

/// A record of a table, NULs behind its end.
Bytes recordOf(const Bytes& table, std::int32_t record) {
    Bytes bytes = offsetOf(record) < table.size() ? table.substr(offsetOf(record), recordLength) : Bytes();
    bytes.resize(recordLength, '\0');
    return bytes;
}

/// The records that a table of so many bytes has, a last piece included.
std::int32_t piecesIn(std::int64_t length) {
    return static_cast<std::int32_t>((length + recordLength - 1) / recordLength);
}

/// A change in place, and the moment at which it was killed. An input is, in this order: records of the table and bytes
/// behind them; the two spans; how much of a growing table had grown; what happened to the table since; what happened to
/// the journal; then, again and again for one record after the other, whether it changes, to what, and how far the change
/// had come in it.
class InterruptedChange {
public:
    explicit InterruptedChange(BytesView bytes) : input_(bytes) {
        makeOldTable();
        chooseSpans();
        const std::uint32_t grown = input_.number(1U << 31);
        const BytesView since = input_.bytes(6);
        const BytesView damage = input_.bytes(6);
        choices_ = Bytes(input_.rest());
        choices_.resize(std::max<std::size_t>(choices_.size(), 1), '\0');
        makeNewTable();
        makeJournal();
        killAt(grown);
        changeSince(FuzzInput(since));
        spoil(FuzzInput(damage));
    }

    const Bytes& table() const { return found_; }
    const Bytes& journal() const { return journal_; }
    bool isSetAside() const { return isForeign_ && !isDamaged_; }
    /// What the table has to be afterwards.
    Bytes recovered() const {
        if (isForeign_ || isDamaged_ || isUntouched()) {
            return found_;
        }
        Bytes table = found_;
        table.resize(after_.size(), '\0');
        for (std::int32_t record = 1; record <= piecesIn(head_.newLength); ++record) {
            if (isInFrame(record)) {
                const BytesView whole = BytesView(after_).substr(offsetOf(record), recordLength);
                table.replace(offsetOf(record), whole.size(), whole);
            }
        }
        return table;
    }

private:
    static constexpr std::uint32_t mostRecords = 300;
    static constexpr std::size_t headLength = 80;
    static constexpr std::size_t frameHeadLength = 24;

    struct Piece {
        std::size_t from;
        std::size_t length;
    };

    /// The choices for a record, by turns.
    unsigned choiceOf(std::int32_t record) const {
        return static_cast<unsigned char>(choices_[static_cast<std::size_t>(record) % choices_.size()]);
    }
    bool changes(std::int32_t record) const {
        const bool isInSpan = std::any_of(head_.spans.begin(), head_.spans.end(), [&](const RecordSpan& span) {
            return record >= span.from && record <= span.to;
        });
        return isInSpan && choiceOf(record) % 4 != 0;
    }
    bool isInFrame(std::int32_t record) const {
        return static_cast<std::size_t>(record) < inFrame_.size() && inFrame_[static_cast<std::size_t>(record)];
    }
    bool isUntouched() const {
        for (std::int32_t record = 1; static_cast<std::size_t>(record) < inFrame_.size(); ++record) {
            if (isInFrame(record) && recordOf(found_, record) != recordOf(before_, record)) {
                return false;
            }
        }
        return found_.size() == before_.size();
    }

    void makeOldTable() {
        oldRecords_ = static_cast<std::int32_t>(input_.number(mostRecords));
        for (std::int32_t record = 1; record <= oldRecords_; ++record) {
            before_ += rowOf(static_cast<char>('a' + record % 26));
        }
        before_.append(input_.byte(), 't');
        head_.oldLength = static_cast<std::int64_t>(before_.size());
    }
    void chooseSpans() {
        const auto upTo = [&](std::uint32_t below) { return static_cast<std::int32_t>(input_.number(below)); };
        RecordSpan& first = head_.spans[0];
        first.from = 1 + upTo(mostRecords);
        first.to = first.from + upTo(mostRecords);
        if (input_.byte() % 2 == 1) {
            RecordSpan& second = head_.spans[1];
            second.from = first.to + 2 + upTo(mostRecords);
            second.to = second.from + upTo(mostRecords);
        }
    }
    void makeNewTable() {
        after_ = before_;
        for (const RecordSpan& span : head_.spans) {
            for (std::int32_t record = span.from; record <= span.to; ++record) {
                if (changes(record)) {
                    const auto fill = static_cast<char>('0' + (choiceOf(record) >> 4));
                    after_.resize(std::max(after_.size(), offsetOf(record + 1)), '\0');
                    after_.replace(offsetOf(record), recordLength, rowOf(fill));
                }
            }
        }
        head_.newLength = static_cast<std::int64_t>(after_.size());
    }
    void makeJournal() {
        const Text name = u"C:\\journal";
        MemoryFiles memory;
        const auto file = memory.openBulk(name);
        forEachFrame(head_.spans, [&](ChangeFrame& frame) {
            for (std::int32_t record = frame.first; record < frame.first + frame.count; ++record) {
                frame.before += recordOf(before_, record);
                frame.after += recordOf(after_, record);
            }
            if (frame.before != frame.after) {
                store(*file, frame);
            }
        });
        writeHead(*file, head_);
        pieces_.push_back({0, headLength});
        journal_ = memory.bytesOf(name);
    }
    void store(RandomFile& file, ChangeFrame& frame) {
        writeFrame(file, frame);
        ++head_.frames;
        head_.sum += frame.fingerprint;
        pieces_.push_back({static_cast<std::size_t>(frame.place), frameHeadLength + 2 * frame.before.size()});
        const auto end = static_cast<std::size_t>(frame.first + frame.count);
        inFrame_.resize(std::max(inFrame_.size(), end), false);
        std::fill_n(inFrame_.begin() + frame.first, frame.count, true);
    }
    /// The record as the kill has left it: old, new, or torn.
    Bytes halfway(std::int32_t record) const {
        const Bytes old = recordOf(before_, record);
        const Bytes fresh = recordOf(after_, record);
        const unsigned choice = choiceOf(record);
        const std::size_t cut = (choice * 37 + static_cast<unsigned>(record)) % recordLength;
        switch (choice >> 2 & 3) {
        case 0:
            return old;
        case 1:
            return fresh;
        case 2:
            return fresh.substr(0, cut) + old.substr(cut);
        default:
            // What is new at the end of a table comes from its front.
            return record <= oldRecords_ ? old.substr(0, cut) + fresh.substr(cut) : fresh;
        }
    }
    void killAt(std::uint32_t grown) {
        for (std::int32_t record = 1; record <= piecesIn(head_.newLength); ++record) {
            found_ += halfway(record);
        }
        const std::int64_t growth = head_.newLength - head_.oldLength;
        found_.resize(static_cast<std::size_t>(head_.oldLength + grown % (growth + 1)));
    }
    /// Somebody may have cut, continued or edited the table. What no frame holds is theirs to edit.
    void changeSince(FuzzInput since) {
        const unsigned how = since.byte() % 8;
        const unsigned byHowMuch = since.byte();
        if (how == 1 && head_.oldLength > 0) {
            found_.resize(static_cast<std::size_t>(std::max<std::int64_t>(0, head_.oldLength - 1 - byHowMuch)));
            isForeign_ = true;
        } else if (how == 2) {
            found_.resize(after_.size() + 1 + byHowMuch, 'x');
            isForeign_ = true;
        } else if (how == 3 && !found_.empty()) {
            const std::size_t at = since.number(static_cast<std::uint32_t>(found_.size()));
            found_[at] = '\x01';
            isForeign_ = isInFrame(static_cast<std::int32_t>(at / recordLength) + 1);
        }
    }
    /// A byte of the head or of a frame may be another one. What stands in place of a frame without a change isn't read.
    void spoil(FuzzInput damage) {
        const unsigned by = damage.byte();
        const Piece piece = pieces_[damage.byte() % pieces_.size()];
        const std::size_t at = piece.from + damage.number(static_cast<std::uint32_t>(piece.length));
        journal_[at] = static_cast<char>(static_cast<unsigned char>(journal_[at]) ^ by);
        isDamaged_ = by != 0;
    }

    FuzzInput input_;
    ChangeHead head_;
    std::int32_t oldRecords_ = 0;
    Bytes before_;
    Bytes after_;
    Bytes found_;
    Bytes journal_;
    Bytes choices_;
    std::vector<Piece> pieces_;
    std::vector<bool> inFrame_; ///< by record; index 0 is not used
    bool isForeign_ = false;
    bool isDamaged_ = false;
};

/// A pair of data file and K file, the pair that a rewrite was putting in its place, and what the next opening finds. An
/// input is, in this order: records of the old, the new and another data file, each with the sign that fills them; the two
/// K files, each behind its length; which data file and which K file are found; which part of the record is spoilt.
class InterruptedSwap {
public:
    explicit InterruptedSwap(BytesView bytes) : input_(bytes) {
        oldData_ = someRecords();
        newData_ = someRecords();
        const Bytes otherData = someRecords();
        record_.oldItems = input_.bytes(input_.byte());
        record_.newItems = input_.bytes(input_.byte());
        oldItems_ = record_.oldItems;
        data_ = oneOf(oldData_, newData_, otherData);
        items_ = oneOf(record_.oldItems, record_.newItems, record_.oldItems + "x");
        measure();
        spoil();
    }

    const Bytes& data() const { return data_; }
    const Bytes& items() const { return items_; }
    const SwapRecord& record() const { return record_; }
    /// The rewrite was killed between its two steps, and its record tells so.
    bool isHalfDone() const { return !isSpoilt_ && data_ == newData_ && items_ == oldItems_; }
    /// What can only be the old pair, the new one, or the new data file beside the old K file.
    bool isOurs() const {
        const bool isOldPair = data_ == oldData_ && items_ == oldItems_;
        const bool isNewPair = data_ == newData_ && items_ == record_.newItems;
        return !isSpoilt_ && (isOldPair || isNewPair || isHalfDone());
    }
    /// Somebody has been at work on the data file, and nobody can say which K file it wants.
    bool isForeign() const {
        return !isSpoilt_ && data_ != oldData_ && data_ != newData_ && items_ != record_.newItems;
    }
    /// The K file may become the new one: nothing that the program looks at speaks against it.
    bool mayFinish() const { return data_ == newData_ && items_ == record_.oldItems; }

private:
    Bytes someRecords() {
        constexpr std::uint32_t mostRecords = 40;
        const std::uint32_t records = input_.number(mostRecords);
        const Bytes row = rowOf(static_cast<char>(input_.byte()));
        Bytes bytes;
        for (std::uint32_t i = 0; i < records; ++i) {
            bytes += row;
        }
        return bytes;
    }
    Bytes oneOf(const Bytes& first, const Bytes& second, const Bytes& third) {
        const unsigned which = input_.byte() % 3;
        return which == 0 ? first : which == 1 ? second : third;
    }
    void measure() {
        MemoryFiles memory;
        memory.replaceWhole(u"C:\\old", oldData_);
        memory.replaceWhole(u"C:\\new", newData_);
        record_.oldLength = oldData_.size();
        record_.oldSample = sampleOf(*memory.openBulk(u"C:\\old"));
        record_.newLength = newData_.size();
        record_.newFingerprint = fingerprintOf(*memory.openBulk(u"C:\\new"));
    }
    void spoil() {
        const unsigned part = input_.byte() % 6;
        const unsigned by = input_.byte();
        isSpoilt_ = by != 0;
        const auto spoilByte = [&](Bytes& bytes) {
            isSpoilt_ = isSpoilt_ && !bytes.empty();
            if (isSpoilt_) {
                char& last = bytes.back();
                last = static_cast<char>(static_cast<unsigned char>(last) ^ by);
            }
        };
        switch (part) {
        case 0:
            record_.newLength ^= by;
            break;
        case 1:
            record_.newFingerprint ^= by;
            break;
        case 2:
            record_.oldLength ^= by;
            break;
        case 3:
            record_.oldSample ^= by;
            break;
        case 4:
            spoilByte(record_.oldItems);
            break;
        default:
            spoilByte(record_.newItems);
        }
    }

    FuzzInput input_;
    SwapRecord record_;
    Bytes oldData_;
    Bytes newData_;
    Bytes oldItems_;
    Bytes data_;
    Bytes items_;
    bool isSpoilt_ = false;
};

/// What recovery has made of the pair, held to what may become of it.
Recovered judge(TestWorld& here, const InterruptedSwap& swap, const Bytes& record) {
    const Bytes items = here.bytesOf("kt.txt");
    const bool isTold = !here.dialogs.messages.empty();
    mustHold(here.bytesOf("t.txt") == swap.data());
    mustHold(items == swap.items() || (swap.mayFinish() && items == swap.record().newItems));
    mustHold(!swap.isHalfDone() || items == swap.record().newItems);
    mustHold(!(swap.isOurs() && isTold));
    mustHold(!swap.isForeign() || isTold);
    mustHold(!isThere(here, u".swap-t.txt") && isThere(here, u".unused-swap-t.txt") == isTold);
    mustHold(here.bytesOf(".unused-swap-t.txt") == (isTold ? record : Bytes()));
    return isTold ? Recovered::setAside : items == swap.items() ? Recovered::asFound : Recovered::finished;
}

} // namespace

Recovered recoverByJournal(BytesView bytes) {
    if (bytes.starts_with(rawMark)) {
        return openBeside(bytes.substr(rawMark.size()), ".change-t.txt");
    }
    const InterruptedChange change(bytes);
    TestWorld& here = freshWorld();
    here.writeFile("t.txt", change.table());
    here.writeFile("kt.txt", oneItem);
    here.writeFile(".change-t.txt", change.journal());
    // The second opening finds nothing to do, and tells nothing.
    for (int opening = 1; opening <= 2; ++opening) {
        recover(here.zormod);
        mustHold(here.bytesOf("t.txt") == change.recovered() && here.bytesOf("kt.txt") == oneItem);
        mustHold(!isThere(here, u".change-t.txt"));
        mustHold(isThere(here, u".unused-change-t.txt") == change.isSetAside());
        mustHold(!change.isSetAside() || here.bytesOf(".unused-change-t.txt") == change.journal());
        mustHold(here.dialogs.messages.size() == (change.isSetAside() ? 1U : 0U));
    }
    if (change.isSetAside()) {
        return Recovered::setAside;
    }
    return change.recovered() == change.table() ? Recovered::asFound : Recovered::finished;
}

Recovered recoverBySwapRecord(BytesView bytes) {
    if (bytes.starts_with(rawMark)) {
        return openBeside(bytes.substr(rawMark.size()), ".swap-t.txt");
    }
    const InterruptedSwap swap(bytes);
    TestWorld& here = freshWorld();
    here.writeFile("t.txt", swap.data());
    here.writeFile("kt.txt", swap.items());
    const Text path = here.zormod.file.programFolder + u"t.txt";
    writeSwapRecord(here.zormod, path.substr(2), path.substr(0, 1), swap.record());
    const Bytes record = here.bytesOf(".swap-t.txt");
    recover(here.zormod);
    const Recovered first = judge(here, swap, record);
    // The second opening finds nothing to do, and tells nothing.
    recover(here.zormod);
    mustHold(judge(here, swap, record) == first && here.dialogs.messages.size() <= 1);
    return first;
}

void addRecoveryTargets(std::vector<FuzzTarget>& list) {
    list.push_back({"swap_record", [](BytesView bytes) { static_cast<void>(recoverBySwapRecord(bytes)); }});
    list.push_back({"change_journal", [](BytesView bytes) { static_cast<void>(recoverByJournal(bytes)); }});
}
