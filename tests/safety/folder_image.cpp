#include "safety/folder_image.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

bool isSame(const FolderImage& a, const FolderImage& b, const std::string& name) {
    const auto inA = a.find(name);
    const auto inB = b.find(name);
    return inA == a.end() || inB == b.end() ? inA == a.end() && inB == b.end() : inA->second == inB->second;
}

bool areSame(const FolderImage& a, const FolderImage& b, const Names& names) {
    return std::all_of(names.begin(), names.end(), [&](const auto& name) { return isSame(a, b, name); });
}

/// True if some of the files that may go first are gone, and the rest is as before.
bool isHalfGone(const FolderImage& now, const FolderImage& before, const Names& names, const Names& goneAlone) {
    return std::all_of(names.begin(), names.end(), [&](const auto& name) {
        return isSame(now, before, name) || (goneAlone.contains(name) && !now.contains(name));
    });
}

Names singles(const FolderImage& before, const FolderImage& after, const WritingOperation& operation) {
    Names names;
    for (const FolderImage* image : {&before, &after}) {
        for (const auto& file : *image) {
            names.insert(file.first);
        }
    }
    for (const Names& pair : operation.pairs) {
        for (const auto& name : pair) {
            names.erase(name);
        }
    }
    return names;
}

} // namespace

FolderImage imageOf(const std::string& folder) {
    FolderImage image;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            std::ifstream in(entry.path(), std::ios::binary);
            image[entry.path().lexically_relative(folder).string()] = {std::istreambuf_iterator<char>(in),
                                                                       std::istreambuf_iterator<char>()};
        }
    }
    return image;
}

void restore(const std::string& folder, const FolderImage& image) {
    for (const auto& entry : fs::directory_iterator(folder)) {
        fs::remove_all(entry.path());
    }
    for (const auto& [name, bytes] : image) {
        const fs::path path = fs::path(folder) / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }
}

std::vector<std::string> problemsOf(const FolderImage& now, const FolderImage& before, const FolderImage& after,
                                    const WritingOperation& operation) {
    std::vector<std::string> problems;
    for (const auto& [name, bytes] : now) {
        if (!before.contains(name) && !after.contains(name)) {
            problems.push_back(name + " is left behind, " + std::to_string(bytes.size()) + " bytes");
        }
    }
    for (const Names& pair : operation.pairs) {
        if (!areSame(now, before, pair) && !areSame(now, after, pair) &&
            !isHalfGone(now, before, pair, operation.goneAlone)) {
            problems.push_back(*pair.begin() + " and its companion are neither old nor new");
        }
    }
    if (!operation.pairs.empty() && !areSame(now, before, operation.pairs.front()) &&
        !areSame(now, after, operation.first)) {
        problems.push_back("the table changed before " + *operation.first.begin() + " was there");
    }
    for (const auto& name : singles(before, after, operation)) {
        const bool mayBeGone = operation.goneAlone.contains(name) && !now.contains(name);
        if (!isSame(now, before, name) && !isSame(now, after, name) && !mayBeGone) {
            problems.push_back(name + " is neither old nor new");
        }
    }
    return problems;
}
