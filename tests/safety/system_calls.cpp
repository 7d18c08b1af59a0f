#include "safety/system_calls.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

// The real ones, and ours in their place: the linker's --wrap gives them these names.
extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_pread(int file, void* into, size_t count, off_t offset);
ssize_t __real_pwrite(int file, const void* bytes, size_t count, off_t offset);
int __real_fsync(int file);
int __real_fdatasync(int file);
int __real_ftruncate(int file, off_t length);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);
int __real_mkdir(const char* path, mode_t mode);
int __real_flock(int file, int operation);
int __real_fchmod(int file, mode_t mode);
int __real_fstat(int file, struct stat* status);
int __real_stat(const char* path, struct stat* status);
int __real_lstat(const char* path, struct stat* status);
ssize_t __real_readlink(const char* path, char* into, size_t count);
DIR* __real_opendir(const char* path);
dirent* __real_readdir(DIR* folder);
int __real_faccessat(int folder, const char* path, int mode, int flags);
int __real_fchown(int file, uid_t owner, gid_t group);
}

namespace {

using Kind = DiskStep::Kind;

/// What a call is, as far as it matters for the ways in which it can fail.
enum class CallClass { makesName, writes, syncs, openForWriting, reads };

using FileKey = std::pair<dev_t, ino_t>;

FileKey keyOf(const struct stat& status) { return {status.st_dev, status.st_ino}; }

bool canFail(CallClass call, const CallFault& fault) {
    if (fault.shortWrite) {
        return call == CallClass::writes;
    }
    if (fault.onlySyncs) {
        return call == CallClass::syncs;
    }
    switch (fault.error) {
    case ENOSPC:
        return call == CallClass::makesName || call == CallClass::writes || call == CallClass::syncs;
    case EACCES:
        return call == CallClass::makesName || call == CallClass::openForWriting;
    default:
        return true;
    }
}

} // namespace

struct CallWatch::State {
    std::string folder;
    std::vector<DiskStep> steps;
    std::map<FileKey, int> numbers;
    std::map<std::string, int> numbersAtStart;
    int lastNumber = 0;
    CallFault fault;
    int callsToFault = 0; ///< 0: none is planned
    int faults = 0;
    std::function<void()> look;

    /// The path below the watched folder; empty if it is not in it, and for the folder itself an empty text.
    std::optional<std::string> below(const std::string& path) const {
        if (path == folder) {
            return std::string();
        }
        if (path.starts_with(folder + "/")) {
            return path.substr(folder.size() + 1);
        }
        return std::nullopt;
    }
    std::optional<std::string> below(int file) const {
        std::array<char, PATH_MAX> room{};
        const std::string link = "/proc/self/fd/" + std::to_string(file);
        const ssize_t length = __real_readlink(link.c_str(), room.data(), room.size());
        return length < 0 ? std::nullopt : below(std::string(room.data(), static_cast<std::size_t>(length)));
    }
    int numberOf(int file) {
        struct stat status {};
        __real_fstat(file, &status);
        int& number = numbers[keyOf(status)];
        number = number == 0 ? ++lastNumber : number;
        return number;
    }
    bool meetsFault(CallClass call) {
        if (callsToFault == 0 || !canFail(call, fault)) {
            return false;
        }
        if (callsToFault > 1) {
            --callsToFault;
            return false;
        }
        callsToFault = fault.fromThenOn || fault.shortWrite ? 1 : 0;
        ++faults;
        return true;
    }
    /// True, with errno set, if the call is the one that has to fail.
    bool fails(CallClass call) {
        if (!meetsFault(call)) {
            return false;
        }
        errno = fault.error;
        return true;
    }
};

namespace {

CallWatch::State* watching = nullptr;
std::string secondDisk; // empty: there is only one
bool syncsArePretended = false;

/// The watch, if the call touches its folder.
template <typename Where> CallWatch::State* watchOf(const Where& where) {
    if (watching == nullptr || !watching->below(where)) {
        return nullptr;
    }
    if (watching->look) {
        CallWatch::State* const watch = std::exchange(watching, nullptr);
        watch->look();
        watching = watch;
    }
    return watching;
}

bool isOnSecondDisk(const std::string& path) { return !secondDisk.empty() && path.starts_with(secondDisk + "/"); }

bool isThere(const char* path) {
    struct stat status {};
    return __real_lstat(path, &status) == 0;
}

int sync(int file, int (*real)(int)) {
    auto* watch = watchOf(file);
    if (watch != nullptr && watch->fails(CallClass::syncs)) {
        const int error = errno;
        watch->steps.push_back({.kind = Kind::syncFailed, .file = watch->numberOf(file)});
        errno = error;
        return -1;
    }
    const int result = syncsArePretended ? 0 : real(file);
    if (watch != nullptr && result == 0) {
        struct stat status {};
        __real_fstat(file, &status);
        if (S_ISDIR(status.st_mode)) {
            watch->steps.push_back({Kind::syncFolder, *watch->below(file)});
        } else {
            watch->steps.push_back({.kind = Kind::syncFile, .file = watch->numberOf(file)});
        }
    }
    return result;
}

} // namespace

extern "C" {

int __wrap_open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list more;
        va_start(more, flags);
        mode = va_arg(more, mode_t);
        va_end(more);
    }
    auto* watch = watchOf(std::string(path));
    const bool makes = (flags & O_CREAT) != 0 && !isThere(path);
    const bool isForWriting = (flags & O_ACCMODE) != O_RDONLY;
    if (watch != nullptr && watch->fails(makes          ? CallClass::makesName
                                         : isForWriting ? CallClass::openForWriting
                                                        : CallClass::reads)) {
        return -1;
    }
    const int file = __real_open(path, flags, mode);
    if (watch != nullptr && file >= 0 && makes) {
        struct stat status {};
        __real_fstat(file, &status);
        watch->numbers[keyOf(status)] = ++watch->lastNumber;
        watch->steps.push_back({.kind = Kind::create, .path = *watch->below(std::string(path)), .file = watch->lastNumber});
    }
    return file;
}

ssize_t __wrap_pread(int file, void* into, size_t count, off_t offset) {
    auto* watch = watchOf(file);
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_pread(file, into, count, offset);
}

ssize_t __wrap_pwrite(int file, const void* bytes, size_t count, off_t offset) {
    auto* watch = watchOf(file);
    if (watch != nullptr && watch->fails(CallClass::writes)) {
        if (!watch->fault.shortWrite || watch->faults > 1 || count < 2) {
            return -1;
        }
        count /= 2;
    }
    const ssize_t written = __real_pwrite(file, bytes, count, offset);
    if (watch != nullptr && written > 0) {
        watch->steps.push_back({.kind = Kind::write,
                                .file = watch->numberOf(file),
                                .offset = offset,
                                .bytes = std::string(static_cast<const char*>(bytes), static_cast<size_t>(written))});
    }
    return written;
}

int __wrap_fsync(int file) { return sync(file, __real_fsync); }
int __wrap_fdatasync(int file) { return sync(file, __real_fdatasync); }

int __wrap_ftruncate(int file, off_t length) {
    auto* watch = watchOf(file);
    if (watch != nullptr && watch->fails(CallClass::writes)) {
        return -1;
    }
    const int result = __real_ftruncate(file, length);
    if (watch != nullptr && result == 0) {
        watch->steps.push_back({.kind = Kind::setLength, .file = watch->numberOf(file), .offset = length});
    }
    return result;
}

int __wrap_rename(const char* from, const char* to) {
    auto* watch = watchOf(std::string(to));
    if (watch != nullptr && watch->fails(CallClass::makesName)) {
        return -1;
    }
    if (isOnSecondDisk(from) != isOnSecondDisk(to)) {
        errno = EXDEV;
        return -1;
    }
    const int result = __real_rename(from, to);
    if (watch != nullptr && result == 0) {
        watch->steps.push_back({Kind::rename, *watch->below(std::string(from)), *watch->below(std::string(to))});
    }
    return result;
}

int __wrap_unlink(const char* path) {
    auto* watch = watchOf(std::string(path));
    // A name that isn't there is no failure of the disk.
    if (watch != nullptr && isThere(path) && watch->fails(CallClass::makesName)) {
        return -1;
    }
    const int result = __real_unlink(path);
    if (watch != nullptr && result == 0) {
        watch->steps.push_back({Kind::unlink, *watch->below(std::string(path))});
    }
    return result;
}

int __wrap_mkdir(const char* path, mode_t mode) {
    auto* watch = watchOf(std::string(path));
    if (watch != nullptr && watch->fails(CallClass::makesName)) {
        return -1;
    }
    const int result = __real_mkdir(path, mode);
    if (watch != nullptr && result == 0) {
        watch->steps.push_back({Kind::makeFolder, *watch->below(std::string(path))});
    }
    return result;
}

int __wrap_flock(int file, int operation) {
    auto* watch = watchOf(file);
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_flock(file, operation);
}

int __wrap_fchmod(int file, mode_t mode) {
    auto* watch = watchOf(file);
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_fchmod(file, mode);
}

int __wrap_fchown(int file, uid_t owner, gid_t group) {
    auto* watch = watchOf(file);
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_fchown(file, owner, group);
}

int __wrap_fstat(int file, struct stat* status) {
    auto* watch = watchOf(file);
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_fstat(file, status);
}

int __wrap_stat(const char* path, struct stat* status) {
    auto* watch = watchOf(std::string(path));
    return watch != nullptr && isThere(path) && watch->fails(CallClass::reads) ? -1 : __real_stat(path, status);
}

int __wrap_lstat(const char* path, struct stat* status) {
    auto* watch = watchOf(std::string(path));
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_lstat(path, status);
}

ssize_t __wrap_readlink(const char* path, char* into, size_t count) {
    auto* watch = watchOf(std::string(path));
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_readlink(path, into, count);
}

int __wrap_faccessat(int folder, const char* path, int mode, int flags) {
    auto* watch = watchOf(std::string(path));
    return watch != nullptr && watch->fails(CallClass::reads) ? -1 : __real_faccessat(folder, path, mode, flags);
}

DIR* __wrap_opendir(const char* path) {
    auto* watch = watchOf(std::string(path));
    return watch != nullptr && watch->fails(CallClass::reads) ? nullptr : __real_opendir(path);
}

dirent* __wrap_readdir(DIR* folder) {
    const int error = errno; // by which the caller tells the end from a failure
    auto* watch = watchOf(dirfd(folder));
    if (watch != nullptr && watch->fails(CallClass::reads)) {
        return nullptr;
    }
    errno = error;
    return __real_readdir(folder);
}

} // extern "C"

CallWatch::CallWatch(std::string folder) : state_(std::make_unique<State>()) {
    if (watching != nullptr) {
        std::abort();
    }
    state_->folder = std::move(folder);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(state_->folder)) {
        struct stat status {};
        if (__real_stat(entry.path().c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
            int& number = state_->numbers[keyOf(status)];
            number = number == 0 ? ++state_->lastNumber : number;
            state_->numbersAtStart[*state_->below(entry.path().string())] = number;
        }
    }
    watching = state_.get();
}

CallWatch::~CallWatch() { watching = nullptr; }

void CallWatch::failAt(int n, const CallFault& fault) {
    state_->fault = fault;
    state_->callsToFault = n;
    state_->faults = 0;
}

void CallWatch::heal() { state_->callsToFault = 0; }
void CallWatch::lookAheadOfEachCall(std::function<void()> look) { state_->look = std::move(look); }
int CallWatch::faults() const { return state_->faults; }
const std::vector<DiskStep>& CallWatch::steps() const { return state_->steps; }

int CallWatch::numberOf(const std::string& path) const {
    const auto found = state_->numbersAtStart.find(path);
    return found == state_->numbersAtStart.end() ? 0 : found->second;
}

SecondDisk::SecondDisk(std::string folder) {
    if (!secondDisk.empty()) {
        std::abort();
    }
    secondDisk = std::move(folder);
}
SecondDisk::~SecondDisk() { secondDisk.clear(); }

PretendedSyncs::PretendedSyncs() { syncsArePretended = true; }
PretendedSyncs::~PretendedSyncs() { syncsArePretended = false; }
