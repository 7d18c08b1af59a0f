#include "reader/settings_file.h"

#include <fstream>

std::string readSettingsFile(const std::string& path) {
    constexpr std::size_t mostBytes = 1u << 16;
    std::ifstream file(path, std::ios::binary);
    std::string contents(mostBytes, '\0');
    file.read(contents.data(), static_cast<std::streamsize>(contents.size()));
    contents.resize(static_cast<std::size_t>(file.gcount()));
    return contents;
}
