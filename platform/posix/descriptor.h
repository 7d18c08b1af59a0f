#pragma once
// The few system calls of the file layer in the form it needs them: interrupted calls are repeated, short reads and
// writes are carried on, every failure is thrown as RuntimeFailure of kind file. Called by the classes of
// platform/posix; knows nothing of drives or of the program's paths.

#include "platform/text.h"

#include <cerrno>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <sys/stat.h>

/// Throws the failure of a file operation.
[[noreturn]] void failFile();

/// True if a look at a path that ended in `error` means that nothing is there for us: no such name, no folder that may
/// be searched on the way to it, or a name that no file can have. Any other error is the disk's, and says nothing.
bool saysNothingIsThere(int error);

/// Result of a system call, repeated while a signal interrupts it. Negative with errno set on failure.
template <typename Call> auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Owns a file descriptor and closes it. A negative number owns nothing.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }

private:
    int number_;
};

/// The file behind a name: which disk, which file on it.
struct Inode {
    dev_t device;
    ino_t number;
    auto operator<=>(const Inode&) const = default;
};

using Status = struct stat;
inline Inode inodeOf(const Status& status) { return {status.st_dev, status.st_ino}; }

/// What the system knows about an open file. Throws on failure.
Status statusOf(const Descriptor& file);
/// What `path` leads to, links followed; empty if that can't be said, with errno set.
std::optional<Status> statusOf(const std::string& path);

/// Opens without ever waiting, without passing the descriptor on to other programs. Not open on failure, errno set.
Descriptor openNative(const std::string& path, int flags, mode_t mode = 0);
/// Opens an existing regular file for reading. Throws on failure, and for a folder or a device.
Descriptor openForReading(const std::string& path);

/// Reads up to `count` bytes from the 0-based byte `offset`; fewer come only at the end of the file. Throws on failure.
std::size_t readFully(const Descriptor& file, std::int64_t offset, char* into, std::size_t count);
/// Writes all of `bytes` at the 0-based byte `offset`. Throws on failure, and then any part of them may be written.
void writeFully(const Descriptor& file, std::int64_t offset, BytesView bytes);
