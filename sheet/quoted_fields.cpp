#include "sheet/quoted_fields.h"

#include "platform/failure.h"

namespace {

constexpr std::size_t blockLength = 1 << 16;
/// Many times as long as a record.
constexpr std::size_t longestField = 1 << 16;
constexpr int none = -1;

bool isLineEnd(int byte) { return byte == '\r' || byte == '\n'; }
bool endsLine(int byte) { return byte == none || isLineEnd(byte); }
bool endsField(int byte) { return byte == ',' || endsLine(byte); }

} // namespace

// Every sign that is looked for is below 40h, where no byte of a two-byte character but the first can be, so bytes do.
Bytes QuotedFields::next() { return fieldUpTo(endsField); }

Bytes QuotedFields::nextOfLine() { return fieldUpTo(endsLine); }

/// A field; what stands between it and a byte that is an end is dropped.
Bytes QuotedFields::fieldUpTo(bool (&isEnd)(int)) {
    if (atEnd()) {
        throw RuntimeFailure{FailureKind::file};
    }
    int byte = take();
    while (byte == ' ') {
        byte = take();
    }
    const bool isQuoted = byte == '"';
    if (isQuoted) {
        byte = take();
    }
    Bytes field;
    while (isQuoted ? byte != '"' && byte != none : !endsField(byte)) {
        if (field.size() == longestField) {
            throw RuntimeFailure{FailureKind::file};
        }
        field += static_cast<char>(byte);
        byte = take();
    }
    isCut_ = isQuoted && byte == none;
    passTo(isEnd, byte);
    return field;
}

void QuotedFields::skip(std::int64_t count) {
    for (std::int64_t i = 0; i < count; ++i) {
        next();
    }
}

bool QuotedFields::atEnd() {
    if (at_ == block_.size()) {
        from_ += static_cast<std::int64_t>(at_);
        block_.resize(blockLength);
        block_.resize(file_.readAt(from_, block_.data(), block_.size()));
        at_ = 0;
    }
    return block_.empty();
}

/// The next byte, 0 to 255, or `none` behind the last.
int QuotedFields::take() { return atEnd() ? none : static_cast<unsigned char>(block_[at_++]); }

/// Passes over what is left behind the byte that has been `taken`.
void QuotedFields::passTo(bool (&isEnd)(int), int taken) {
    while (!isEnd(taken)) {
        taken = take();
    }
    if (taken == '\r' && !atEnd() && block_[at_] == '\n') {
        ++at_;
    }
}
