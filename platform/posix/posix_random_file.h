#pragma once
// A regular file open in random access. Made by PosixFiles; everybody else knows it as RandomFile.

#include "platform/files.h"
#include "platform/posix/descriptor.h"

#include <string>

/// Reads and writes by position; a write is on the disk when it returns.
class PosixRandomFile : public RandomFile {
public:
    /// Opens the file at the native `path`, makes it if need be, and opens it for reading only if it may not be
    /// written. Throws RuntimeFailure of kind file on failure, and for a folder or a device.
    explicit PosixRandomFile(std::string path);
    std::int64_t length() override;
    std::size_t readAt(std::int64_t offset, char* into, std::size_t count) override;
    void writeDurably(std::int64_t offset, BytesView bytes) override;

private:
    bool isStillNamed() const;
    void shrinkBackTo(std::int64_t oldLength);

    std::string path_;
    bool isWritable_ = true;
    Descriptor file_;
};
