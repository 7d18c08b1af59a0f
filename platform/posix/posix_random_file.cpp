#include "platform/posix/posix_random_file.h"

#include "platform/failure.h"
#include "platform/posix/folders.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

bool meansReadOnly(int error) { return error == EACCES || error == EPERM || error == EROFS || error == ETXTBSY; }

} // namespace

PosixRandomFile::PosixRandomFile(std::string path) : path_(std::move(path)) {
    const std::optional<Status> before = statusOf(path_);
    // Asked before opening, because opening a device may already do something to it.
    if (before && !S_ISREG(before->st_mode)) {
        failFile();
    }
    file_ = openNative(path_, O_RDWR | O_CREAT, 0666);
    if (!file_.isOpen() && meansReadOnly(errno)) {
        isWritable_ = false;
        file_ = openNative(path_, O_RDONLY);
    }
    if (!file_.isOpen() || !S_ISREG(statusOf(file_).st_mode)) {
        failFile();
    }
    if (!before) {
        // A new name must outlast a crash as the records behind it do.
        syncFolder(openParentOf(withoutLinks(path_)));
    }
}

std::int64_t PosixRandomFile::length() { return statusOf(file_).st_size; }

std::size_t PosixRandomFile::readAt(std::int64_t offset, char* into, std::size_t count) {
    return readFully(file_, offset, into, count);
}

void PosixRandomFile::writeDurably(std::int64_t offset, BytesView bytes) {
    if (!isWritable_ || !isStillNamed()) {
        failFile();
    }
    const std::int64_t oldLength = length();
    try {
        writeFully(file_, offset, bytes);
        if (uninterrupted([&] { return fdatasync(file_.number()); }) != 0) {
            failFile();
        }
    } catch (const RuntimeFailure&) {
        shrinkBackTo(oldLength);
        throw;
    }
}

bool PosixRandomFile::isStillNamed() const {
    const std::optional<Status> named = statusOf(path_);
    return named && inodeOf(*named) == inodeOf(statusOf(file_));
}

void PosixRandomFile::shrinkBackTo(std::int64_t oldLength) {
    if (length() > oldLength && uninterrupted([&] { return ftruncate(file_.number(), oldLength); }) != 0) {
        failFile();
    }
}
