#pragma once
// The hidden files under which new contents are written before they take a name of the user's. Called by
// replacement_file and PosixFiles. Only a kill leaves one behind; removeLeftovers finds it by its name, and knows by the
// system's lock (flock), which dies with its program, that nobody is writing it any more. So any number of running copies
// may write and tidy in one folder. A file system without locks keeps its leftovers.

#include "platform/posix/descriptor.h"
#include "platform/posix/temporary_name.h"

#include <string>

/// A new, empty file open for writing, locked for as long as `file` is open. The name goes away with `name`.
struct HiddenFile {
    TemporaryName name;
    Descriptor file;
};

/// Makes one in the native `folder`, under a name that nobody else uses. Throws on failure.
HiddenFile makeHiddenFile(const std::string& folder, mode_t mode);

/// Deletes the hidden files in the native `folder` that killed programs have left. What can't be opened or locked stays.
/// Throws if the folder can't be read or a file can't be deleted.
void removeLeftovers(const std::string& folder);
