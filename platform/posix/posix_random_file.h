#pragma once
// A regular file open in random access. Made by PosixFiles; everybody else knows it as RandomFile.

#include "platform/files.h"
#include "platform/posix/opened_file.h"

#include <string>

/// Reads and writes by position; a write is on the disk when it returns.
class PosixRandomFile : public RandomFile {
public:
    /// Opens the file at the native `path`; see OpenedFile.
    explicit PosixRandomFile(std::string path) : file_(std::move(path)) { file_.syncName(); }
    std::int64_t length() override { return file_.length(); }
    std::size_t readAt(std::int64_t offset, char* into, std::size_t count) override;
    void writeDurably(std::int64_t offset, BytesView bytes) override;
    bool isInPlace() override { return file_.isNamed(); }

private:
    void putBack(std::int64_t offset, BytesView old, std::int64_t oldLength);

    OpenedFile file_;
};
