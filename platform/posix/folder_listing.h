#pragma once
// What a folder holds, as lists show it. Called by PosixFiles. A folder of ten thousand files is one reading of the
// folder, without a query for each file unless it is a link.

#include "platform/files.h"

#include <string>

/// The contents of a native folder. Hidden entries, those whose name begins with a point, are left out, and so is what
/// is neither folder nor file. A RuntimeFailure of kind file if it can't be read.
FolderContents listFolder(const std::string& nativeFolder);
