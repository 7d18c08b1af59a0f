#pragma once
// Reads the entries of a folder for the few places of the file layer that look through one. Called by the classes of
// platform/posix alone.

#include <dirent.h>
#include <functional>
#include <string>

/// Hands the entries of the native `folder` to `take` in the order of the disk, "." and ".." among them, until there are
/// no more or `take` returns false. Returns false, with errno set, if the folder can't be opened. Throws RuntimeFailure
/// of kind file if the disk fails amid the entries: a listing that ends too early would hide files that are there.
bool readFolder(const std::string& folder, const std::function<bool(const dirent&)>& take);
