#include "platform/posix/start_paths.h"

#include <filesystem>

std::string startFolder() {
    std::error_code gone;
    const auto folder = std::filesystem::current_path(gone);
    return gone ? "/" : folder.string();
}

std::string besideProgram(const std::string& name) {
    std::error_code unknown;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
    return (unknown ? std::filesystem::path("/") : program.parent_path() / name).string();
}
