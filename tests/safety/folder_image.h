#pragma once
// The files of a folder in memory: taken from the disk, put back on it, and judged against what an operation may leave.
// Used by the fault runs.

#include "safety/simulated_disk.h"
#include "safety/writing_operations.h"

/// Reads all files of `folder` and of the folders below it.
FolderImage imageOf(const std::string& folder);

/// Makes `folder` hold exactly the files of `image`.
void restore(const std::string& folder, const FolderImage& image);

/// What is wrong with `now` after the operation that turns `before` into `after`: a pair that is neither, a file that
/// belongs to nobody. Empty: nothing.
std::vector<std::string> problemsOf(const FolderImage& now, const FolderImage& before, const FolderImage& after,
                                    const WritingOperation& operation);
