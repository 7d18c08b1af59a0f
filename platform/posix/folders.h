#pragma once
// What main and the writers of platform/posix need to know about folders. Native paths throughout. A
// failure is thrown as RuntimeFailure of kind file. Nothing here changes a file or a folder.

#include "platform/posix/descriptor.h"

#include <string>

/// The folder in which this process stands, as an absolute path: what main hands to PosixFiles as the start folder.
std::string nativeCurrentFolder();
/// The folder of an absolute path.
std::string parentOf(const std::string& path);
/// Follows the links in the last name of `path` to the name of the file itself, which need not exist; the system
/// follows those in the folders before it.
std::string withoutLinks(std::string path);
/// Opens the folder that holds `path`.
Descriptor openParentOf(const std::string& path);
/// Makes the names in an open folder durable.
void syncFolder(const Descriptor& folder);
