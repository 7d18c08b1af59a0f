#pragma once
// A regular file open for reading and, where that is allowed, for writing, together with the path that led to it. The
// open files of platform/posix hold one; it reads and writes nothing itself.

#include "platform/posix/descriptor.h"

#include <string>

/// An open file that knows its path.
class OpenedFile {
public:
    /// Opens the file at the native `path`, makes it if need be, and opens it for reading only if it may not be
    /// written. A name that it gets only now lasts once syncName has returned. Throws RuntimeFailure of kind file on
    /// failure, and for a folder or a device.
    explicit OpenedFile(std::string path);

    const Descriptor& descriptor() const { return file_; }
    /// Length in bytes, asked of the system.
    std::int64_t length() const { return statusOf(file_).st_size; }
    /// Throws unless the file may be written and its path still names this very file.
    void mustBeWritable() const;
    /// True if the path still names this very file. Throws if the disk can't say.
    bool isNamed() const;
    /// Throws unless the path still names this very file.
    void mustBeNamed() const;
    /// Makes the name durable, if opening made it. Throws on failure.
    void syncName();
    /// Makes what was written durable. Throws on failure.
    void sync() const;

private:
    std::string path_;
    bool isWritable_ = true;
    bool isNameNew_ = false; ///< made by us and not yet known to be on the disk
    Descriptor file_;
};
