#include "platform/posix/folder_reader.h"

#include "platform/posix/descriptor.h"

#include <memory>

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

} // namespace

bool readFolder(const std::string& folder, const std::function<bool(const dirent&)>& take) {
    const std::unique_ptr<DIR, CloseFolder> entries(opendir(folder.c_str()));
    if (!entries) {
        return false;
    }
    for (;;) {
        errno = 0;
        const dirent* const entry = readdir(entries.get());
        if (entry == nullptr && errno != 0) {
            failFile();
        }
        if (entry == nullptr || !take(*entry)) {
            return true;
        }
    }
}
