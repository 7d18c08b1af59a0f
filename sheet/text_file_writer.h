#pragma once
// Writes a text file line by line and puts it in the place of an older one only when it is finished, whatever its
// length: so a failure or a kill leaves the old file, and a shorter file never keeps the tail of a longer one. Used for
// the clip file and its backup, which grow with the table.
//
//   .new-NAME   beside the file NAME: what is being written; a kill leaves it behind, and the next opening of a table or
//               the next writer takes it away

#include "sheet/zormod.h"

/// One file being written, open under a file number of the shared state. The caller holds a claim on its folder.
class TextFileWriter {
public:
    /// Begins the new contents of `path` as file `fileNo` (2..4). Throws a RuntimeFailure of kind file.
    TextFileWriter(ZORMOD& zormod, int fileNo, const Text& path);
    /// Closes the file number and, unless the file has been put in place, takes the new contents away.
    ~TextFileWriter();
    TextFileWriter(const TextFileWriter&) = delete;
    TextFileWriter& operator=(const TextFileWriter&) = delete;

    /// Writes a number between two blanks as a line.
    void numberLine(std::int64_t number);
    /// Writes what the text of `bytes` is encoded as, in double quotes, as a line. A double quote inside is written as it
    /// is; it ends the field for every reader.
    void quotedLine(BytesView bytes);
    /// Closes the file and gives it its name; what was written so far is its whole contents.
    void putInPlace();

private:
    Text newPath() const;
    void writeOutIfMuch();
    void writeOut();

    ZORMOD& zormod_;
    const int fileNo_;
    const Text path_;
    BulkFile* file_ = nullptr; ///< held by the shared state
    std::int64_t length_ = 0;  ///< bytes handed to the file
    Bytes held_;               ///< whole lines that are still to be
};

/// Deletes what killed writers left of the clip file and its backup, unless another running copy is at work there.
/// Throws a RuntimeFailure of kind file.
void clearUnfinishedTextFiles(ZORMOD& zormod);
