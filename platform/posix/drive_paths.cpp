#include "platform/posix/drive_paths.h"

#include "platform/failure.h"
#include "platform/letter_case.h"
#include "platform/posix/name_lookup.h"
#include "platform/posix/native_names.h"

#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr TextView separators = u"\\/";

std::string withoutSlashAtEnd(std::string folder) {
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.pop_back();
    }
    return folder;
}

bool liesIn(const std::string& folder, const std::string& path) {
    return folder == "/" || path == folder || path.starts_with(folder + '/');
}

std::vector<std::string> namesOf(TextView path) {
    std::vector<std::string> names;
    for (std::size_t at = path.find_first_not_of(separators); at != TextView::npos;
         at = path.find_first_not_of(separators, at)) {
        const std::size_t end = std::min(path.find_first_of(separators, at), path.size());
        names.push_back(nativeFromText(path.substr(at, end - at)));
        at = end;
    }
    return names;
}

bool mayWrite(const std::string& folder) { return faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0; }

Text driveForm(char16_t letter, Text nativePath) {
    std::replace(nativePath.begin(), nativePath.end(), u'\\', carriedBackslash);
    std::replace(nativePath.begin(), nativePath.end(), u'/', u'\\');
    return Text{letter, u':'} + nativePath;
}

} // namespace

DrivePaths::DrivePaths(DriveTable drives, const std::string& startFolder)
    : drives_(std::move(drives)), startFolder_(withoutSlashAtEnd(startFolder)) {
    for (auto& [letter, folder] : drives_) {
        folder = withoutSlashAtEnd(std::move(folder));
    }
    currentFolder_ = fromNative(startFolder_);
    currentDrive_ = currentFolder_.front();
}

std::vector<Text> DrivePaths::letters() const {
    std::vector<Text> letters;
    for (const auto& [letter, folder] : drives_) {
        letters.emplace_back(1, letter);
    }
    return letters;
}

std::optional<DrivePaths::Parts> DrivePaths::parse(TextView path) const {
    const std::size_t colon = path.substr(0, 2).find(u':');
    const bool namesDrive = colon == 1;
    const auto drive = drives_.find(namesDrive ? upperCase(path.front()) : currentDrive_);
    if (colon == 0 || path.size() >= PATH_MAX || drive == drives_.end()) {
        return std::nullopt;
    }
    const std::string& root = drive->second;
    const TextView inDrive = path.substr(namesDrive ? 2 : 0);
    try {
        return Parts{root, drive->first == currentDrive_ ? startFolder_ : root,
                     inDrive.find_first_of(separators) == 0, namesOf(inDrive)};
    } catch (const RuntimeFailure&) {
        return std::nullopt; // a name that can't be written as bytes
    }
}

std::string DrivePaths::native(TextView path) const {
    const std::optional<Parts> parts = parse(path);
    if (!parts) {
        throw RuntimeFailure{FailureKind::file};
    }
    std::string found = lookedUp(parts->countsFromRoot ? parts->root : parts->current, parts->names);
    if (parts->countsFromRoot && parts->names.size() == 1 && !hasEntry(found) && !mayWrite(parts->root)) {
        found = lookedUp(parts->current, parts->names);
    }
    return found;
}

Text DrivePaths::fromNative(const std::string& path) const {
    auto nearest = drives_.end();
    for (auto drive = drives_.begin(); drive != drives_.end(); ++drive) {
        if (liesIn(drive->second, path) &&
            (nearest == drives_.end() || drive->second.size() > nearest->second.size())) {
            nearest = drive;
        }
    }
    if (nearest == drives_.end() || !path.starts_with('/')) {
        throw RuntimeFailure{FailureKind::file};
    }
    const auto& [letter, folder] = *nearest;
    std::string inDrive = path.substr(folder == "/" ? 0 : folder.size());
    if (inDrive.empty()) {
        inDrive = "/";
    }
    return driveForm(letter, textFromNative(inDrive));
}

Text DrivePaths::fromCommandLine(TextView argument) {
    if (argument.starts_with(u'/')) {
        return driveForm(u'C', Text(argument));
    }
    Text path(argument);
    std::replace(path.begin(), path.end(), u'/', u'\\');
    return path;
}
