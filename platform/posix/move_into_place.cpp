#include "platform/posix/move_into_place.h"

#include "platform/posix/folders.h"
#include "platform/posix/replacement_file.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// Another copy may have opened the new file as a table of its own; then it must not go anywhere.
std::unique_ptr<TableLock> claimed(const std::string& path, TableLocks& locks) {
    auto lock = locks.lock(path);
    if (!lock) {
        failFile();
    }
    return lock;
}

std::unique_ptr<TableLock> copyIntoPlace(const Descriptor& source, const std::string& from, const std::string& target,
                                         TableLocks& locks) {
    // Under a name that whoever opens `target` next can find, since a kill in the middle of a long copy leaves it behind.
    ReplacementFile replacement(target, ".new-" + target.substr(target.rfind('/') + 1));
    replacement.copyFrom(source);
    auto lock = claimed(replacement.temporaryPath(), locks);
    replacement.putInPlace();
    if (unlink(from.c_str()) != 0) {
        failFile();
    }
    return lock;
}

} // namespace

std::unique_ptr<TableLock> moveIntoPlace(const std::string& from, const std::string& to, TableLocks& locks) {
    const std::string target = withoutLinks(to);
    const std::optional<Status> old = replaceable(target);
    const Descriptor source = openForReading(from);
    auto lock = claimed(from, locks);
    if (old) {
        takeOver(source, *old);
    }
    if (uninterrupted([&] { return fsync(source.number()); }) != 0) {
        failFile();
    }
    const Descriptor oldFolder = openParentOf(from);
    const Descriptor newFolder = openParentOf(target);
    if (std::rename(from.c_str(), target.c_str()) != 0) {
        if (errno != EXDEV) {
            failFile();
        }
        lock = copyIntoPlace(source, from, target, locks);
    }
    syncFolder(newFolder);
    if (inodeOf(statusOf(oldFolder)) != inodeOf(statusOf(newFolder))) {
        syncFolder(oldFolder);
    }
    return lock;
}
