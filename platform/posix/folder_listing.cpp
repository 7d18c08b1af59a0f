#include "platform/posix/folder_listing.h"

#include "platform/failure.h"
#include "platform/posix/folder_reader.h"
#include "platform/posix/name_lookup.h"
#include "platform/posix/native_names.h"

#include <algorithm>
#include <sys/stat.h>
#include <utility>

namespace {

enum class EntryKind { folder, file, neither };

EntryKind kindOf(const std::string& folder, const dirent& entry) {
    if (entry.d_type == DT_DIR) {
        return EntryKind::folder;
    }
    if (entry.d_type == DT_REG) {
        return EntryKind::file;
    }
    struct stat status {};
    if ((entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) ||
        stat(joined(folder, entry.d_name).c_str(), &status) != 0) {
        return EntryKind::neither;
    }
    return S_ISDIR(status.st_mode) ? EntryKind::folder : S_ISREG(status.st_mode) ? EntryKind::file : EntryKind::neither;
}

/// The name as a part of a path, in which a "\" would read as the end of a folder.
Text nameInPath(const char* native) {
    Text name = textFromNative(native);
    std::replace(name.begin(), name.end(), u'\\', carriedBackslash);
    return name;
}

/// Sorts by the folded names; equal ones keep the order of their spelling.
void sortNames(std::vector<Text>& names) {
    std::vector<std::pair<Text, Text>> keyed;
    keyed.reserve(names.size());
    for (Text& name : names) {
        keyed.emplace_back(foldedName(name), std::move(name));
    }
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), names.begin(), [](auto& pair) { return std::move(pair.second); });
}

} // namespace

FolderContents listFolder(const std::string& nativeFolder) {
    FolderContents contents;
    const bool isOpen = readFolder(nativeFolder, [&](const dirent& entry) {
        const EntryKind kind = entry.d_name[0] == '.' ? EntryKind::neither : kindOf(nativeFolder, entry);
        if (kind == EntryKind::folder) {
            contents.folders.push_back(nameInPath(entry.d_name));
        } else if (kind == EntryKind::file) {
            contents.files.push_back(nameInPath(entry.d_name));
        }
        return true;
    });
    if (!isOpen) {
        throw RuntimeFailure{FailureKind::file};
    }
    sortNames(contents.folders);
    sortNames(contents.files);
    return contents;
}
