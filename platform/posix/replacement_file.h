#pragma once
// A file that is written beside another one and then takes its place in one step, so that a reader, or a kill at any
// moment, meets the old contents or the new ones. Called by PosixFiles. Its name until then is hidden, belongs to no
// other file, and goes away with the object; only a kill leaves it behind (hidden_files.h).
//
// Beside, because a rename can't cross disks. The name of a link leads to the file that takes the bytes: links stay
// links. The new file keeps the permissions of the old one, and its owner as far as the user may give files away; other
// hard links to the old file keep the old contents.

#include "platform/posix/descriptor.h"
#include "platform/posix/temporary_name.h"

#include <optional>
#include <string>

/// Gives `file` the permissions of the file it is to replace, and its owner as far as the user may give files away.
void takeOver(const Descriptor& file, const Status& old);

/// The status of the native `path`, links followed, if there is such a file. Throws if it is no regular file or may not
/// be written.
std::optional<Status> replaceable(const std::string& path);

/// One replacement. Every call throws RuntimeFailure of kind file on failure, and then the old file is untouched.
class ReplacementFile {
public:
    /// Makes the empty new file for the native `path`, which names a regular file that the user may write, or nothing.
    explicit ReplacementFile(const std::string& path);
    /// The same under a name of the caller's own until it is put in place; a leftover of that name is deleted. Only one
    /// caller at a time may do so.
    ReplacementFile(const std::string& path, const std::string& temporaryName);
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    /// The new file, open for writing.
    const Descriptor& file() const { return file_; }
    /// The name it has until it is put in place.
    const std::string& temporaryPath() const { return temporary_.path(); }
    /// Writes all bytes of `source` into it.
    void copyFrom(const Descriptor& source);
    /// Makes the new file durable and puts it in place. A failure of the very last step, making the rename durable, is
    /// thrown although the new contents are in place already.
    void putInPlace();

private:
    void takeOverFrom(const std::optional<Status>& old);

    std::string target_;
    Descriptor folder_;
    TemporaryName temporary_;
    Descriptor file_;
};
