#include "platform/posix/table_locks.h"

#include <fcntl.h>
#include <sys/file.h>

namespace {

/// A share in a locked descriptor; without one, a claim that excludes nobody.
class SharedClaim : public TableLock {
public:
    explicit SharedClaim(std::shared_ptr<Descriptor> locked = {}) : locked_(std::move(locked)) {}

private:
    std::shared_ptr<Descriptor> locked_;
};

bool isOutOfResources(int error) { return error == EMFILE || error == ENFILE || error == ENOMEM || error == EIO; }

/// EBADF and EACCES: a file system over the network that locks only what is open for writing.
bool knowsNoLocks(int error) {
    return error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL || error == EBADF ||
           error == EACCES;
}

/// For writing where that is allowed, because some file systems lock only what is open for writing.
Descriptor openToLock(const std::string& path) {
    Descriptor file = openNative(path, O_RDWR);
    if (!file.isOpen() && !isOutOfResources(errno)) {
        file = openNative(path, O_RDONLY);
    }
    if (!file.isOpen() && isOutOfResources(errno)) {
        failFile();
    }
    return file;
}

} // namespace

std::unique_ptr<TableLock> TableLocks::lock(const std::string& path) { return claim(path, S_IFREG); }

std::unique_ptr<TableLock> TableLocks::lockFolder(const std::string& path) { return claim(path, S_IFDIR); }

std::unique_ptr<TableLock> TableLocks::claim(const std::string& path, mode_t kind) {
    std::erase_if(held_, [](const auto& claim) { return claim.second.expired(); });
    for (;;) {
        const std::optional<Status> status = statusOf(path);
        if (!status && !saysNothingIsThere(errno)) {
            failFile();
        }
        if (!status || (status->st_mode & S_IFMT) != kind) {
            return std::make_unique<SharedClaim>();
        }
        const Inode inode = inodeOf(*status);
        if (const auto held = held_.find(inode); held != held_.end()) {
            return std::make_unique<SharedClaim>(held->second.lock());
        }
        auto file = std::make_shared<Descriptor>(openToLock(path));
        if (!file->isOpen()) {
            return std::make_unique<SharedClaim>();
        }
        if (uninterrupted([&] { return flock(file->number(), LOCK_EX | LOCK_NB); }) != 0) {
            if (errno == EWOULDBLOCK) {
                return nullptr;
            }
            if (!knowsNoLocks(errno)) {
                failFile();
            }
            return std::make_unique<SharedClaim>();
        }
        // Another file may have taken the name between asking and locking; then the lock is on the wrong one.
        const std::optional<Status> now = statusOf(path);
        if (now && inodeOf(*now) == inode && inodeOf(statusOf(*file)) == inode) {
            held_[inode] = file;
            return std::make_unique<SharedClaim>(std::move(file));
        }
    }
}
