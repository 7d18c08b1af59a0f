#pragma once
// A regular file open for one run over many records. Made by PosixFiles; everybody else knows it as BulkFile. It holds
// one block read ahead and one block not yet written, whatever the length of the file.

#include "platform/files.h"
#include "platform/posix/opened_file.h"

#include <string>

/// Reads ahead and writes behind.
class PosixBulkFile : public BulkFile {
public:
    /// Opens the file at the native `path`; see OpenedFile.
    explicit PosixBulkFile(std::string path);
    std::int64_t length() override;
    std::size_t readAt(std::int64_t offset, char* into, std::size_t count) override;
    void writeDurably(std::int64_t offset, BytesView bytes) override;
    bool isInPlace() override { return file_.isNamed(); }
    void finish() override;
    void handOver() override;

private:
    std::int64_t heldEnd() const { return heldFrom_ + static_cast<std::int64_t>(held_.size()); }
    std::int64_t aheadEnd() const { return aheadFrom_ + static_cast<std::int64_t>(ahead_.size()); }
    void readAhead(std::int64_t offset, std::size_t count);
    void writeIntoAhead(std::int64_t offset, BytesView bytes);
    void writeOut();
    void push();

    OpenedFile file_;
    Bytes ahead_;                ///< bytes of the file from aheadFrom_ on
    std::int64_t aheadFrom_ = 0;
    Bytes held_;                 ///< bytes to be written from heldFrom_ on
    std::int64_t heldFrom_ = 0;
    std::int64_t pushFrom_ = 0;  ///< written bytes from here to pushEnd_ have not been pushed to the disk
    std::int64_t pushEnd_ = 0;
    bool isChanged_ = false;
};
