#include "platform/posix/folders.h"

#include "platform/posix/name_lookup.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// As many as the system itself follows.
constexpr int mostLinks = 40;

} // namespace

std::string nativeCurrentFolder() {
    std::array<char, PATH_MAX> folder{};
    if (getcwd(folder.data(), folder.size()) == nullptr) {
        failFile();
    }
    return folder.data();
}

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string withoutLinks(std::string path) {
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> to{};
        const ssize_t length = readlink(path.c_str(), to.data(), to.size());
        if (length < 0 && errno != EINVAL && !saysNothingIsThere(errno)) {
            failFile(); // a link that can't be read must not be taken for a file and replaced
        }
        if (length < 0) {
            return path;
        }
        const std::string target(to.data(), static_cast<std::size_t>(length));
        path = target.starts_with('/') ? target : joined(parentOf(path), target);
    }
    failFile();
}

Descriptor openParentOf(const std::string& path) {
    Descriptor folder = openNative(parentOf(path), O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen()) {
        failFile();
    }
    return folder;
}

void syncFolder(const Descriptor& folder) {
    // EINVAL: a file system that keeps its folders durable by itself.
    if (uninterrupted([&] { return fsync(folder.number()); }) != 0 && errno != EINVAL) {
        failFile();
    }
}
