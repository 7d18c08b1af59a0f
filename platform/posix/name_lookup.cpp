#include "platform/posix/name_lookup.h"

#include "platform/letter_case.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/folder_reader.h"
#include "platform/posix/native_names.h"

#include <algorithm>
#include <array>
#include <sys/stat.h>

namespace {

/// Every `step`th unit from `first` to `last` folds to the unit `distance` further on.
struct FoldedRange {
    char16_t first;
    char16_t last;
    int step;
    int distance;
};

/// What the code page doesn't hold in both cases, and therefore platform/letter_case leaves alone.
constexpr std::array<FoldedRange, 29> foldedRanges{{
    {0x00B5, 0x00B5, 1, 0x307}, // micro sign to mu
    {0x00C0, 0x00D6, 1, 0x20},  // Latin-1
    {0x00D8, 0x00DE, 1, 0x20},
    {0x0100, 0x012E, 2, 1}, // Latin Extended-A, where capitals and small letters take turns
    {0x0132, 0x0136, 2, 1},
    {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1},
    {0x0178, 0x0178, 1, -0x79},
    {0x0179, 0x017D, 2, 1},
    {0x017F, 0x017F, 1, 's' - 0x017F}, // long s
    {0x0386, 0x0386, 1, 0x26},         // Greek with accents
    {0x0388, 0x038A, 1, 0x25},
    {0x038C, 0x038C, 1, 0x40},
    {0x038E, 0x038F, 1, 0x3F},
    {0x03AA, 0x03AB, 1, 0x20},
    {0x03C2, 0x03C2, 1, 1}, // final sigma
    {0x0400, 0x0400, 1, 0x50}, // Cyrillic of other languages than Russian
    {0x0402, 0x040F, 1, 0x50},
    {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},
    {0x04C0, 0x04C0, 1, 0x0F},
    {0x04C1, 0x04CD, 2, 1},
    {0x04D0, 0x052E, 2, 1},
    {0x1E00, 0x1E94, 2, 1},             // Latin with two accents
    {0x1EA0, 0x1EFE, 2, 1},
    {0x2126, 0x2126, 1, 0x03C9 - 0x2126}, // ohm to omega
    {0x212A, 0x212A, 1, 'k' - 0x212A},    // kelvin
    {0x212B, 0x212B, 1, 0x00E5 - 0x212B}, // angstrom
    {0x2160, 0x216F, 1, 0x10},            // Roman numerals
}};

char16_t foldedUnit(char16_t unit) {
    for (const auto& [first, last, step, distance] : foldedRanges) {
        if (unit >= first && unit <= last && (unit - first) % step == 0) {
            return static_cast<char16_t>(unit + distance);
        }
    }
    return lowerCase(unit);
}

std::string entryFor(const std::string& folder, const std::string& name) {
    const Text wanted = foldedName(textFromNative(name));
    std::string found;
    const bool isOpen = readFolder(folder, [&](const dirent& entry) {
        const std::string candidate = entry.d_name;
        // The order of UTF-8 bytes is the order of code points.
        if (candidate == name ||
            ((found.empty() || candidate < found) && foldedName(textFromNative(candidate)) == wanted)) {
            found = candidate;
        }
        return candidate != name;
    });
    if (!isOpen && !saysNothingIsThere(errno)) {
        failFile(); // under the name as it is written a second file might be made beside the one that is meant
    }
    return found.empty() ? name : found;
}

} // namespace

bool hasEntry(const std::string& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) == 0) {
        return true;
    }
    if (!saysNothingIsThere(errno)) {
        failFile();
    }
    return false;
}

std::string joined(const std::string& folder, const std::string& name) {
    return folder.ends_with('/') ? folder + name : folder + '/' + name;
}

std::string lookedUp(const std::string& base, const std::vector<std::string>& names) {
    // paths[n] leads through the first n names as they are written.
    std::vector<std::string> paths{base};
    for (const std::string& name : names) {
        paths.push_back(joined(paths.back(), name));
    }
    std::size_t exact = paths.size() - 1;
    while (exact > 0 && !hasEntry(paths[exact])) {
        --exact;
    }
    std::string found = paths[exact];
    for (std::size_t i = exact; i < names.size(); ++i) {
        found = joined(found, entryFor(found, names[i]));
    }
    return found;
}

Text foldedName(TextView name) {
    Text folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), foldedUnit);
    return folded;
}
