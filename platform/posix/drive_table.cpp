#include "platform/posix/drive_table.h"

#include <algorithm>
#include <memory>
#include <mntent.h>
#include <pwd.h>
#include <set>
#include <unistd.h>

namespace {

bool liesRightBelow(const std::string& folder, const std::string& path) {
    return path.size() > folder.size() && path.starts_with(folder) &&
           path.find('/', folder.size()) == std::string::npos;
}

struct CloseMounts {
    void operator()(FILE* mounts) const { endmntent(mounts); }
};

std::vector<std::string> mountPointsNow() {
    std::vector<std::string> points;
    const std::unique_ptr<FILE, CloseMounts> mounts(setmntent("/proc/self/mounts", "re"));
    if (!mounts) {
        return points;
    }
    mntent entry{};
    std::vector<char> line(1 << 16);
    while (getmntent_r(mounts.get(), &entry, line.data(), static_cast<int>(line.size())) != nullptr) {
        points.emplace_back(entry.mnt_dir);
    }
    return points;
}

std::string userName() {
    passwd entry{};
    passwd* found = nullptr;
    std::vector<char> texts(1 << 14);
    getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found);
    return found == nullptr ? std::string() : found->pw_name;
}

} // namespace

std::vector<std::string> mediaOf(const std::vector<std::string>& mountPoints, const std::string& user) {
    std::set<std::string> media;
    for (const std::string& point : mountPoints) {
        if (!user.empty() &&
            (liesRightBelow("/media/" + user + "/", point) || liesRightBelow("/run/media/" + user + "/", point))) {
            media.insert(point);
        }
    }
    return {media.begin(), media.end()};
}

std::vector<std::string> mountedMedia() { return mediaOf(mountPointsNow(), userName()); }

void giveLetters(DriveTable& drives, const std::vector<std::string>& media) {
    for (const std::string& medium : media) {
        const bool hasLetter =
            std::any_of(drives.begin(), drives.end(), [&](const auto& drive) { return drive.second == medium; });
        const char16_t next = drives.empty() ? u'D' : std::max<char16_t>(u'D', drives.rbegin()->first + 1);
        if (!hasLetter && next <= u'Z') {
            drives[next] = medium;
        }
    }
}

DriveTable drivesFor(const std::vector<std::string>& mountPoints, const std::string& user) {
    DriveTable drives{{u'C', "/"}};
    giveLetters(drives, mediaOf(mountPoints, user));
    return drives;
}

DriveTable defaultDrives() { return drivesFor(mountPointsNow(), userName()); }
