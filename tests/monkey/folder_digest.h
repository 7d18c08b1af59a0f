#pragma once
// A number for everything that a folder holds, so that two walks can be held against each other.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

/// The digest of the names and bytes of all files in `folder` and below it (FNV-1a). The same files give the same
/// digest, whatever folder they lie in.
inline std::uint64_t folderDigest(const std::string& folder) {
    std::set<std::filesystem::path> paths; // in an order that doesn't depend on the file system
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            paths.insert(entry.path());
        }
    }
    std::uint64_t digest = 0xcbf29ce484222325;
    const auto add = [&digest](const std::string& bytes) {
        for (const char byte : bytes) {
            digest = (digest ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
        }
        digest = (digest ^ bytes.size()) * 0x100000001b3; // or a name might take over the first byte behind it
    };
    for (const std::filesystem::path& path : paths) {
        add(path.lexically_relative(folder).string());
        std::ifstream in(path, std::ios::binary);
        add({std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()});
    }
    return digest;
}
