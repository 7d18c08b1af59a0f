#pragma once
// What stands in the journal of a change in place: its format, read and written here alone, for the run that makes a
// journal (sheet/change_journal.h) and for the recovery that finds one (sheet/change_recovery.h).
//
// Format of ".change-NAME", numbers of eight bytes, lowest byte first. A head of 80 bytes: the eight bytes "ROMEDIT1";
// length of the table before and after; first and last record of two spans (1 and 0 if there is only one); how many
// frames there are; the sum of their fingerprints; the fingerprint of all this. Behind it the frames of the first span,
// then those of the second, each for the next 256 records of its span, the last one for what is left: first record,
// number of records, fingerprint of these two and of what follows; all records as they were, all records as they will
// be. A frame of zeros holds no change. What is not there, behind the end of the table, counts as NULs.
//
// The fingerprints make one wait for the disk enough: a journal of which any part is missing is no journal.

#include "sheet/zormod.h"

#include <array>
#include <functional>
#include <optional>

/// Records from..to, both included; none if from > to. May reach past the end of the table.
struct RecordSpan {
    std::int32_t from = 1;
    std::int32_t to = 0;
};
/// The spans of a change, in the order of the table; they neither meet nor touch. Empty ones stand behind.
using ChangeSpans = std::array<RecordSpan, 2>;

/// The head of a journal.
struct ChangeHead {
    std::int64_t oldLength = 0; ///< bytes of the table before the change
    std::int64_t newLength = 0; ///< and after it
    ChangeSpans spans{};
    std::uint64_t frames = 0; ///< frames that hold a change
    std::uint64_t sum = 0;    ///< of their fingerprints
};

/// Some records that stand one behind the other in the table.
struct ChangeFrame {
    std::int32_t first = 1;
    std::int32_t count = 0;
    std::int64_t place = 0; ///< byte of the journal at which it belongs
    Bytes before{};         ///< `count` records
    Bytes after{};          ///< and what becomes of them
    std::uint64_t fingerprint = 0; ///< with which it stands in the journal
};

/// Puts the head into the journal.
void writeHead(RandomFile& journal, const ChangeHead& head);
/// The head, unless it isn't whole.
std::optional<ChangeHead> readHead(RandomFile& journal);

/// Place and size of the frame of `record`, without contents. A record outside the spans is a subscript failure.
ChangeFrame frameAround(const ChangeSpans& spans, std::int32_t record);
/// Hands all frames of the spans, without contents, to `use`, from the last to the first.
void forEachFrame(const ChangeSpans& spans, const std::function<void(ChangeFrame& frame)>& use);

/// Puts a frame with contents into the journal and sets its fingerprint.
void writeFrame(RandomFile& journal, ChangeFrame& frame);
/// What came of readFrame.
enum class FrameFound { whole, broken, none };
/// Reads contents and fingerprint of a frame.
FrameFound readFrame(RandomFile& journal, ChangeFrame& frame);

/// The frame's records as the table has them now, NULs behind its end.
Bytes recordsNow(RandomFile& table, const ChangeFrame& frame);
/// Writes the changed records of the frame into the table.
void changeRecords(RandomFile& table, const ChangeFrame& frame);
/// Writes them as they were before, as far as the table reached then: `oldLength` bytes.
void putRecordsBack(RandomFile& table, const ChangeFrame& frame, std::int64_t oldLength);
