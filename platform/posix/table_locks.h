#pragma once
// The claims of this program on tables, and on the folders it works in. Called by PosixFiles. A claim is the system's own lock on the open file
// (flock), held through a descriptor that nothing else uses: it doesn't notice how often the table itself is closed and
// opened, and the system lets go of it when the program dies. Nothing is written beside the table.
//
// Within the program a claim belongs to the file, not to its name: whoever claims a file that is claimed already gets
// a share, and the lock goes when the last share does.

#include "platform/files.h"
#include "platform/posix/descriptor.h"

#include <map>
#include <memory>
#include <string>

/// All claims of one file layer.
class TableLocks {
public:
    /// Claims the file at the native `path`. Null if another program holds it. What can't be opened (no such file, a
    /// folder, no permission) and what lies on a file system without locks gives a claim that excludes nobody: who
    /// opens the table meets the reason. Throws RuntimeFailure of kind file if the system can't say.
    std::unique_ptr<TableLock> lock(const std::string& path);
    /// The same for a folder: the lock is on the folder itself, so nothing is written into it.
    std::unique_ptr<TableLock> lockFolder(const std::string& path);

private:
    std::unique_ptr<TableLock> claim(const std::string& path, mode_t kind);

    std::map<Inode, std::weak_ptr<Descriptor>> held_;
};
