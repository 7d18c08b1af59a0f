#pragma once
// The one place that knows both spellings of a path: the program's (drive letter, colon, backslashes) and the system's.
// Called by the file layer alone. It looks names up but never opens, makes or changes a file.
//
// "C:\a\b" counts from the drive's root, "C:WORK.QQQ" from the drive's current folder, "\W1" and "ZORCLip" from the
// root and the current folder of the drive in which the program was started. The current folder of that drive is the
// start folder, of every other drive its root. "/" separates names as "\" does.

#include "platform/posix/drive_table.h"
#include "platform/text.h"

#include <optional>
#include <string>
#include <vector>

/// Conversion of paths for one drive table and one start folder.
class DrivePaths {
public:
    /// `startFolder` is an absolute native path. A RuntimeFailure of kind file if it lies on none of the drives.
    DrivePaths(DriveTable drives, const std::string& startFolder);

    /// The start folder in drive-letter form; without "\" at its end unless it is a drive's root.
    const Text& currentFolder() const { return currentFolder_; }

    /// Gives media that have been mounted since letters of their own.
    void addMedia(const std::vector<std::string>& media) { giveLetters(drives_, media); }

    /// The letters of the drives, in order.
    std::vector<Text> letters() const;

    /// False if no file can have that path: its drive is not in the table, or not named in front of a colon, or there is
    /// no such name.
    bool canName(TextView path) const { return parse(path).has_value(); }

    /// The native path of an entry, existing or not, found without regard to case where no entry matches exactly. A
    /// single name right in a drive's root that doesn't exist there, and can't be made there either because the user
    /// may not write the root, means that name in the drive's current folder. A RuntimeFailure of kind file if no file
    /// can have the path, or the disk fails during the search.
    std::string native(TextView path) const;

    /// An absolute native path in drive-letter form, on the drive whose folder is nearest. A "\" inside a name is
    /// carried as carriedBackslash. A RuntimeFailure of kind file if the path lies on none of the drives.
    Text fromNative(const std::string& path) const;

    /// A text of the command line as a path of the program: one that begins with "/" is a native path, and becomes one
    /// on drive C with a "\" inside a name carried as carriedBackslash; in any other text each "/" becomes "\".
    static Text fromCommandLine(TextView argument);

private:
    /// What a path says.
    struct Parts {
        const std::string& root;    ///< the drive's
        const std::string& current; ///< the drive's current folder
        bool countsFromRoot;
        std::vector<std::string> names;
    };
    std::optional<Parts> parse(TextView path) const;

    DriveTable drives_;
    Text currentFolder_;
    std::string startFolder_;
    char16_t currentDrive_;
};
