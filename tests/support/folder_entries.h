#pragma once
// What lies in a folder, for tests that look for leftovers.

#include <filesystem>
#include <set>
#include <string>

/// The names of all files and folders in `folder`, hidden ones included.
inline std::set<std::string> entriesOf(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}
