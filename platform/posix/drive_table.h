#pragma once
// Which drive letters there are and which native folder each one stands for. Made once at the start by whoever builds
// the file layer: defaultDrives() in the program, any table a test likes (two folders as two drives) in a test.

#include <map>
#include <string>
#include <vector>

/// Letter, "A" to "Z" as a capital, to the absolute native folder that is the drive's root.
using DriveTable = std::map<char16_t, std::string>;

/// Drive C is "/". The media among `mountPoints` (absolute native folders) that the desktop mounted for the user named
/// `user`, those right below /media/USER and /run/media/USER, get the letters from D on in the order of their paths;
/// behind Z there are none.
DriveTable drivesFor(const std::vector<std::string>& mountPoints, const std::string& user);

/// The media among `mountPoints` that the desktop mounted for `user`, in the order of their paths.
std::vector<std::string> mediaOf(const std::vector<std::string>& mountPoints, const std::string& user);

/// The media mounted for this user now.
std::vector<std::string> mountedMedia();

/// Gives each medium that has no letter yet the next one behind the last, as far as Z. A letter once given is never
/// taken back or moved: paths in the shared state stay what they mean.
void giveLetters(DriveTable& drives, const std::vector<std::string>& media);

/// The table for this user and the media mounted now.
DriveTable defaultDrives();
