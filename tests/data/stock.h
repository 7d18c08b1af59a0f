#pragma once
// The files that come with the program, as the build has made them.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// Bytes of a file of the stock, found by its name in UTF-8; a missing file is empty.
inline std::string stockFile(const std::string& name) {
    std::ifstream in(std::string(ROMIKA_STOCK_FOLDER) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline bool isInStock(const std::string& name) {
    return std::filesystem::is_regular_file(std::string(ROMIKA_STOCK_FOLDER) + "/" + name);
}
