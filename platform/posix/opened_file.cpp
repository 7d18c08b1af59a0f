#include "platform/posix/opened_file.h"

#include "platform/posix/folders.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

bool meansReadOnly(int error) { return error == EACCES || error == EPERM || error == EROFS || error == ETXTBSY; }

} // namespace

OpenedFile::OpenedFile(std::string path) : path_(std::move(path)) {
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
    isNameNew_ = !before;
}

void OpenedFile::syncName() {
    if (isNameNew_) {
        syncFolder(openParentOf(withoutLinks(path_)));
        isNameNew_ = false;
    }
}

void OpenedFile::mustBeWritable() const {
    if (!isWritable_) {
        failFile();
    }
    mustBeNamed();
}

bool OpenedFile::isNamed() const {
    const std::optional<Status> named = statusOf(path_);
    if (!named && !saysNothingIsThere(errno)) {
        failFile();
    }
    return named && inodeOf(*named) == inodeOf(statusOf(file_));
}

void OpenedFile::mustBeNamed() const {
    if (!isNamed()) {
        failFile();
    }
}

void OpenedFile::sync() const {
    if (uninterrupted([&] { return fdatasync(file_.number()); }) != 0) {
        failFile();
    }
}
