#pragma once
// The fields of text files whose texts may stand in double quotes: the clip file, its backup, the scoring board. Read
// one by one from an open file of any length; nothing here looks at what a field means.
//
// A field ends at a comma or a line end (CR LF, CR or LF); blanks ahead of it are dropped. One that begins with a double
// quote runs to the next one, over commas and line ends, and what stands between that and the end of the field is
// dropped. A double quote inside such a field can't be written, so it cuts the field.

#include "platform/files.h"

/// Takes fields from the front of a file. Fails with a RuntimeFailure of kind file.
class QuotedFields {
public:
    /// `file` outlives the object and isn't changed meanwhile.
    explicit QuotedFields(RandomFile& file) : file_(file) {}
    /// The bytes of the next field. None left, or a field longer than any writer makes one, is a failure.
    Bytes next();
    /// The same, and whatever follows the field in its line is dropped with it: for files of one text a line, where a text
    /// that holds a double quote and a comma must not come back as two.
    Bytes nextOfLine();
    /// True if the field taken last began with a double quote that nothing closes: the file ends too early.
    bool isCut() const { return isCut_; }
    /// Passes over `count` fields; none for 0 or less.
    void skip(std::int64_t count);
    /// True when there is no field left.
    bool atEnd();

private:
    int take();
    Bytes fieldUpTo(bool (&isEnd)(int));
    void passTo(bool (&isEnd)(int), int taken);

    RandomFile& file_;
    std::int64_t from_ = 0; ///< of the block in the file
    Bytes block_;
    std::size_t at_ = 0; ///< of the next byte in the block
    bool isCut_ = false;
};
