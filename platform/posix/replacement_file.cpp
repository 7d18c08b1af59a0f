#include "platform/posix/replacement_file.h"

#include "platform/posix/folders.h"
#include "platform/posix/hidden_files.h"
#include "platform/posix/name_lookup.h"

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr mode_t permissionBits = 07777;
constexpr std::size_t blockLength = 1 << 16;

/// Nobody else may look into what is to take the place of a file, until it has that file's permissions.
mode_t modeFor(const std::optional<Status>& old) { return old ? 0600 : 0666; }

} // namespace

void takeOver(const Descriptor& file, const Status& old) {
    const Status fresh = statusOf(file);
    // One by one: who may not give the file to its owner may still give it to the group that shares the folder.
    const auto give = [&](uid_t owner, gid_t group) {
        if (fchown(file.number(), owner, group) != 0 && errno != EPERM) {
            failFile();
        }
    };
    if (fresh.st_gid != old.st_gid) {
        give(static_cast<uid_t>(-1), old.st_gid);
    }
    if (fresh.st_uid != old.st_uid) {
        give(old.st_uid, static_cast<gid_t>(-1));
    }
    // After the change of owner, which may take permissions away.
    if ((statusOf(file).st_mode & permissionBits) != (old.st_mode & permissionBits) &&
        fchmod(file.number(), old.st_mode & permissionBits) != 0) {
        failFile();
    }
}

std::optional<Status> replaceable(const std::string& path) {
    std::optional<Status> old = statusOf(path);
    if (old && (!S_ISREG(old->st_mode) || faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)) {
        failFile();
    }
    return old;
}

ReplacementFile::ReplacementFile(const std::string& path) : target_(withoutLinks(path)) {
    const std::optional<Status> old = replaceable(target_);
    folder_ = openParentOf(target_);
    HiddenFile hidden = makeHiddenFile(parentOf(target_), modeFor(old));
    temporary_ = std::move(hidden.name);
    file_ = std::move(hidden.file);
    takeOverFrom(old);
}

ReplacementFile::ReplacementFile(const std::string& path, const std::string& temporaryName)
    : target_(withoutLinks(path)) {
    const std::optional<Status> old = replaceable(target_);
    folder_ = openParentOf(target_);
    const std::string temporary = joined(parentOf(target_), temporaryName);
    if (unlink(temporary.c_str()) != 0 && errno != ENOENT) {
        failFile();
    }
    file_ = openNative(temporary, O_RDWR | O_CREAT | O_EXCL, modeFor(old));
    if (!file_.isOpen()) {
        failFile();
    }
    temporary_ = TemporaryName(temporary);
    takeOverFrom(old);
}

void ReplacementFile::takeOverFrom(const std::optional<Status>& old) {
    if (old) {
        takeOver(file_, *old);
    }
}

void ReplacementFile::copyFrom(const Descriptor& source) {
    Bytes block(blockLength, '\0');
    for (std::int64_t offset = 0;;) {
        const std::size_t length = readFully(source, offset, block.data(), block.size());
        if (length == 0) {
            return;
        }
        writeFully(file_, offset, BytesView(block).substr(0, length));
        offset += static_cast<std::int64_t>(length);
    }
}

void ReplacementFile::putInPlace() {
    if (uninterrupted([&] { return fsync(file_.number()); }) != 0 ||
        std::rename(temporary_.path().c_str(), target_.c_str()) != 0) {
        failFile();
    }
    temporary_.giveUp();
    syncFolder(folder_);
}
