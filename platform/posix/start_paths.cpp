#include "platform/posix/start_paths.h"

#include "platform/failure.h"
#include "platform/posix/folders.h"

#include <filesystem>

std::string startFolder() {
    try {
        return nativeCurrentFolder();
    } catch (const RuntimeFailure&) {
        return "/"; // the folder is gone; the root is there, and a table named in full still opens
    }
}

std::string besideProgram(const std::string& name) {
    std::error_code unknown;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
    return (unknown ? std::filesystem::path("/") : program.parent_path() / name).string();
}
