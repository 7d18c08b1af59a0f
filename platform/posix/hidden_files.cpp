#include "platform/posix/hidden_files.h"

#include "platform/posix/folder_reader.h"
#include "platform/posix/folders.h"
#include "platform/posix/name_lookup.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/random.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

constexpr std::string_view prefix = ".romika-";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t randomBytes = 12;

/// A name that nobody else uses: even two copies of the program that write the same file at once differ.
std::string hiddenName() {
    std::array<unsigned char, randomBytes> random{};
    if (uninterrupted([&] { return getrandom(random.data(), random.size(), 0); }) !=
        static_cast<ssize_t>(random.size())) {
        failFile();
    }
    std::string name(prefix);
    for (const unsigned char byte : random) {
        name += digits[byte >> 4];
        name += digits[byte & 15];
    }
    return name;
}

bool isHiddenName(std::string_view name) {
    return name.size() == prefix.size() + 2 * randomBytes && name.starts_with(prefix) &&
           name.find_first_not_of(digits, prefix.size()) == std::string_view::npos;
}

bool lock(const Descriptor& file) {
    return uninterrupted([&] { return flock(file.number(), LOCK_EX | LOCK_NB); }) == 0;
}

bool isNamed(const std::string& path, const Descriptor& file) {
    const std::optional<Status> named = statusOf(path);
    if (!named && errno != ENOENT) {
        failFile();
    }
    return named && inodeOf(*named) == inodeOf(statusOf(file));
}

std::vector<std::string> hiddenFilesIn(const std::string& folder) {
    std::vector<std::string> paths;
    const bool isOpen = readFolder(folder, [&](const dirent& entry) {
        if (isHiddenName(entry.d_name)) {
            paths.push_back(joined(folder, entry.d_name));
        }
        return true;
    });
    if (!isOpen) {
        failFile();
    }
    return paths;
}

} // namespace

HiddenFile makeHiddenFile(const std::string& folder, mode_t mode) {
    for (;;) {
        const std::string path = joined(folder, hiddenName());
        Descriptor file = openNative(path, O_RDWR | O_CREAT | O_EXCL, mode);
        if (!file.isOpen()) {
            failFile();
        }
        TemporaryName name(path);
        // Ahead of the lock another copy may have taken it for a leftover; then that one deletes it, and the next name has
        // to do.
        if (!lock(file) && errno == EWOULDBLOCK) {
            name.giveUp();
        } else if (isNamed(path, file)) {
            return {std::move(name), std::move(file)};
        }
    }
}

void removeLeftovers(const std::string& folder) {
    const std::vector<std::string> paths = hiddenFilesIn(folder);
    for (const std::string& path : paths) {
        const Descriptor file = openNative(path, O_RDWR | O_NOFOLLOW);
        if (file.isOpen() && lock(file) && isNamed(path, file) && unlink(path.c_str()) != 0) {
            failFile();
        }
    }
    if (!paths.empty()) {
        syncFolder(openParentOf(paths.front()));
    }
}
