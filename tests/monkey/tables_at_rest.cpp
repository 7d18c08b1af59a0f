#include "tests/monkey/tables_at_rest.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

RestLeave restLeaveOf(const std::vector<Text>& ran) {
    const auto hasRun = [&](TextView name) { return std::find(ran.begin(), ran.end(), name) != ran.end(); };
    return {.deletes = hasRun(u"mnuDEL"), .designs = hasRun(u"mnuNEW") || hasRun(u"mnuKOUMOKU")};
}

void TablesAtRest::note(const std::function<bool(const std::string& name)>& isOpen) {
    noted_.clear();
    for (const std::string& name : names_) {
        if (isOpen(name)) {
            continue;
        }
        for (const bool isItemFile : {false, true}) {
            const std::string file = isItemFile ? "K" + name : name;
            // A K file may have been opened as a table of its own.
            if (!isItemFile || !isOpen(file)) {
                noted_.push_back({file, isItemFile, stampOf(pathOf(file)), bytesOf(pathOf(file))});
            }
        }
    }
}

Complaint TablesAtRest::look(const RestLeave& leave) {
    for (Noted& file : noted_) {
        if (auto wrong = lookAt(file, leave)) {
            return wrong;
        }
    }
    return std::nullopt;
}

Complaint TablesAtRest::lookAt(Noted& file, const RestLeave& leave) const {
    const auto stamp = stampOf(pathOf(file.name));
    if (stamp == file.stamp) {
        return std::nullopt;
    }
    if (!stamp) {
        return leave.deletes ? std::nullopt : Complaint("table at rest: " + file.name + " has gone");
    }
    if (file.stamp && bytesOf(pathOf(file.name)) == file.bytes) {
        file.stamp = stamp;
        return std::nullopt;
    }
    const bool isDesigned = leave.designs && (file.isItemFile || !file.stamp);
    return isDesigned ? std::nullopt : Complaint("table at rest: " + file.name + " has changed");
}

std::optional<TablesAtRest::Stamp> TablesAtRest::stampOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) { // a folder can have the name, too
        return std::nullopt;
    }
    return Stamp{static_cast<long long>(status.st_ino), status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

std::string TablesAtRest::bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
