#pragma once
// Real files in a temporary folder for tests of the file layer itself.

#include "platform/posix/posix_files.h"
#include "support/test_world.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// A file layer that was started in a temporary folder, and the same folder by its native names.
struct RealFolder {
    RealFolder() : files({{u'C', "/"}}, folder.path()) {}

    std::string native(const std::string& name) const { return folder.path() + "/" + name; }
    void make(const std::string& name, std::string_view bytes) const {
        std::ofstream(native(name), std::ios::binary) << bytes;
    }
    std::string bytesOf(const std::string& name) const {
        std::ifstream in(native(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }
    /// How many entries the folder has, hidden ones included.
    std::ptrdiff_t entries() const {
        return std::distance(std::filesystem::directory_iterator(folder.path()), std::filesystem::directory_iterator());
    }
    /// Lets an ordinary user in.
    void openToEverybody() const { std::filesystem::permissions(folder.path(), std::filesystem::perms(0777)); }

    TemporaryFolder folder;
    PosixFiles files;
};
