#include "start/folder_browser.h"

#include "platform/dialogs.h"
#include "platform/letter_case.h"
#include "platform/name_pattern.h"
#include "start/make_folder.h"

#include <algorithm>
#include <optional>

namespace {

/// Without "\" at the end, unless it is a drive's root.
Text plainPath(Text path) {
    while (path.size() > 3 && path.ends_with(u'\\')) {
        path.pop_back();
    }
    return path;
}

bool isRoot(const Text& path) {
    return path.size() <= 3;
}

Text rootOf(const Text& path) {
    return path.substr(0, 2) + u'\\';
}

/// The folder above; a root stays.
Text parentOf(const Text& path) {
    return isRoot(path) ? path : plainPath(path.substr(0, std::max<std::size_t>(lastPosition(path, u"\\"), 3)));
}

int lineOf(const std::vector<Text>& lines, TextView line) {
    const auto found = std::find(lines.begin(), lines.end(), line);
    return found == lines.end() ? -1 : static_cast<int>(found - lines.begin());
}

const Text* lineAt(const std::vector<Text>& lines, int line) {
    return line >= 0 && line < static_cast<int>(lines.size()) ? &lines[static_cast<std::size_t>(line)] : nullptr;
}

std::optional<FolderContents> contentsOf(Files& files, const Text& path) {
    try {
        return files.folderContents(path);
    } catch (const RuntimeFailure&) {
        return std::nullopt; // the caller stays where it is, or goes elsewhere
    }
}

} // namespace

void FolderBrowser::start(const Text& path) {
    findDrives();
    const Text program = plainPath(zormod_.file.programFolder);
    for (const Text& candidate : {plainPath(path), program, rootOf(program)}) {
        if (auto contents = contentsOf(zormod_.platform.files, candidate)) {
            path_ = candidate;
            show(std::move(*contents));
            return;
        }
    }
    path_ = rootOf(program);
    show({});
}

void FolderBrowser::findDrives() {
    std::vector<Text> found;
    for (const Text& letter : zormod_.platform.files.drives()) {
        found.push_back(lowerCase(letter) + u':');
    }
    if (found != drives_) {
        drives_ = std::move(found);
        ++revision_;
    }
}

int FolderBrowser::currentDrive() const {
    return lineOf(drives_, lowerCase(TextView(path_).substr(0, 2)));
}

bool FolderBrowser::changeDrive(int line) {
    const Text* drive = lineAt(drives_, line);
    return drive != nullptr && enter(firstFolderOf(*drive), {});
}

/// Where a drive is entered: the program's folder on its own drive, the root of any other.
Text FolderBrowser::firstFolderOf(const Text& drive) {
    const Text program = plainPath(zormod_.file.programFolder);
    const bool isProgramDrive = lowerCase(TextView(program).substr(0, 2)) == drive;
    return isProgramDrive ? program : upperCase(drive) + u'\\';
}

bool FolderBrowser::changeFolder(int line) {
    const Text* folder = lineAt(folders_, line);
    if (folder == nullptr) {
        return false;
    }
    if (*folder == folderAbove) {
        return enter(parentOf(path_), path_.substr(lastPosition(path_, u"\\")));
    }
    return enter(pathInFolder(path_, *folder), {});
}

bool FolderBrowser::refresh() {
    const Text selected = selectedName();
    if (!enter(path_, {})) {
        return false;
    }
    selectedFile_ = selected.empty() ? -1 : lineOf(files_, selected);
    return true;
}

void FolderBrowser::setPattern(TextView pattern) {
    pattern_ = Text(pattern);
    pickFiles();
}

Text FolderBrowser::selectedName() const {
    const Text* name = lineAt(files_, selectedFile_);
    return name != nullptr ? *name : Text();
}

Text FolderBrowser::changedText() const {
    return path_ + u"にﾌｫﾙﾀﾞが変更されました.";
}

/// Goes to a folder; the folder box then stands at the name `from`, if it is there.
bool FolderBrowser::enter(const Text& path, const Text& from) {
    auto contents = contentsOf(zormod_.platform.files, path);
    if (!contents) {
        zormod_.platform.dialogs.showMessage(Text(failureText(FailureKind::file)), Text(failureTitle));
        return false;
    }
    path_ = path;
    show(std::move(*contents));
    startFolder_ = std::max(0, lineOf(folders_, from));
    return true;
}

void FolderBrowser::show(FolderContents contents) {
    folders_ = std::move(contents.folders);
    if (!isRoot(path_)) {
        folders_.insert(folders_.begin(), Text(folderAbove));
    }
    startFolder_ = 0;
    allFiles_ = std::move(contents.files);
    pickFiles();
}

void FolderBrowser::pickFiles() {
    files_.clear();
    std::copy_if(allFiles_.begin(), allFiles_.end(), std::back_inserter(files_),
                 [&](const Text& name) { return fitsPattern(name, pattern_); });
    selectedFile_ = -1;
    ++revision_;
}
