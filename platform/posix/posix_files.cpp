#include "platform/posix/posix_files.h"

#include "platform/failure.h"
#include "platform/posix/background_close.h"
#include "platform/posix/folder_listing.h"
#include "platform/posix/folders.h"
#include "platform/posix/hidden_files.h"
#include "platform/posix/move_into_place.h"
#include "platform/posix/posix_bulk_file.h"
#include "platform/posix/posix_random_file.h"
#include "platform/posix/replacement_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t blockLength = 1 << 16;

/// A file that takes the system a noticeable time to free.
bool isLong(const std::string& path) {
    constexpr std::int64_t length = 1 << 24;
    const std::optional<Status> status = statusOf(path);
    return status && S_ISREG(status->st_mode) && status->st_size >= length;
}

} // namespace

std::optional<Status> PosixFiles::find(const Text& path) const {
    if (!paths_.canName(path)) {
        return std::nullopt; // a drive that isn't there has nothing on it
    }
    std::optional<Status> status = statusOf(paths_.native(path));
    if (!status && !saysNothingIsThere(errno)) {
        failFile();
    }
    return status;
}

bool PosixFiles::exists(const Text& path) { return find(path).has_value(); }

bool PosixFiles::isSameFile(const Text& one, const Text& other) {
    const std::optional<Status> first = find(one);
    const std::optional<Status> second = find(other);
    return first && second && inodeOf(*first) == inodeOf(*second);
}

std::unique_ptr<RandomFile> PosixFiles::openRandom(const Text& path) {
    return std::make_unique<PosixRandomFile>(paths_.native(path));
}

std::unique_ptr<BulkFile> PosixFiles::openBulk(const Text& path) {
    return std::make_unique<PosixBulkFile>(paths_.native(path));
}

Bytes PosixFiles::readWhole(const Text& path, std::size_t limit) {
    const Descriptor file = openForReading(paths_.native(path));
    const auto expected = static_cast<std::size_t>(statusOf(file).st_size);
    if (expected > limit) {
        failFile();
    }
    Bytes bytes;
    // One byte more than the length, because only a read that falls short has met the end: the file may grow meanwhile,
    // and some file systems know no lengths.
    for (std::size_t wanted = expected + 1;; wanted = blockLength) {
        const std::size_t before = bytes.size();
        bytes.resize(before + wanted);
        const std::size_t came =
            readFully(file, static_cast<std::int64_t>(before), bytes.data() + before, wanted);
        bytes.resize(before + came);
        if (bytes.size() > limit) {
            failFile();
        }
        if (came < wanted) {
            return bytes;
        }
    }
}

void PosixFiles::replaceWhole(const Text& path, BytesView contents) {
    ReplacementFile replacement(paths_.native(path));
    writeFully(replacement.file(), 0, contents);
    replacement.putInPlace();
}

void PosixFiles::expectReplaceable(const Text& path) {
    const std::string target = withoutLinks(paths_.native(path));
    static_cast<void>(replaceable(target));
    if (faccessat(AT_FDCWD, parentOf(target).c_str(), W_OK, AT_EACCESS) != 0) {
        failFile();
    }
}

void PosixFiles::copy(const Text& from, const Text& to) {
    const Descriptor source = openForReading(paths_.native(from));
    ReplacementFile replacement(paths_.native(to));
    replacement.copyFrom(source);
    replacement.putInPlace();
}

std::unique_ptr<TableLock> PosixFiles::lockTable(const Text& path) {
    // Where no file can be, who opens the table next tells the user; here it is a name that leads nowhere.
    return locks_.lock(paths_.canName(path) ? paths_.native(path) : std::string());
}

std::unique_ptr<TableLock> PosixFiles::lockFolder(const Text& path) {
    return locks_.lockFolder(paths_.native(path));
}

std::unique_ptr<TableLock> PosixFiles::moveIntoPlace(const Text& from, const Text& to) {
    return ::moveIntoPlace(paths_.native(from), paths_.native(to), locks_);
}

void PosixFiles::remove(const Text& path) {
    const std::string native = paths_.native(path);
    Descriptor last = isLong(native) ? openNative(native, O_RDONLY) : Descriptor();
    if (unlink(native.c_str()) != 0) {
        failFile();
    }
    syncFolder(openParentOf(native));
    if (last.isOpen()) {
        closeInBackground(std::move(last));
    }
}

void PosixFiles::removeLeftovers(const Text& folder) { ::removeLeftovers(paths_.native(folder)); }

void PosixFiles::makeFolder(const Text& path) {
    const std::string native = paths_.native(path);
    if (mkdir(native.c_str(), 0777) != 0) {
        failFile();
    }
    // A table that is made in it next must not vanish with the folder.
    syncFolder(openParentOf(native));
}

std::vector<Text> PosixFiles::drives() {
    if (media_) {
        paths_.addMedia(media_());
    }
    return paths_.letters();
}

FolderContents PosixFiles::folderContents(const Text& path) { return listFolder(paths_.native(path)); }
