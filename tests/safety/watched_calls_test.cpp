// The runs with faults are worth as much as the list of the calls that they can fail: a call of the file layer that is not
// in it never fails in any test.

#include "support/source_rules.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <sstream>
#include <string>

namespace {

/// What the system offers to look at files and folders and to change them. sync_file_range is not among them: it only
/// begins what a sync finishes and reports.
const std::set<std::string> callsOnFiles = {
    "open",     "openat",   "creat",    "read",      "pread",      "preadv",          "readv",         "write",
    "pwrite",   "pwritev",  "writev",   "fsync",     "fdatasync",  "syncfs",          "ftruncate",     "truncate",
    "rename",   "renameat", "link",     "linkat",    "symlink",    "symlinkat",       "unlink",        "unlinkat",
    "rmdir",    "mkdir",    "mkdirat",  "flock",     "lockf",      "fcntl",           "chmod",         "fchmod",
    "fchmodat", "chown",    "fchown",   "lchown",    "fchownat",   "stat",            "fstat",         "lstat",
    "fstatat",  "statx",    "readlink", "readlinkat", "realpath",  "access",          "faccessat",     "opendir",
    "fdopendir", "readdir", "scandir",  "fallocate", "posix_fallocate", "copy_file_range", "sendfile", "mmap",
    "utimensat", "futimens", "fopen",   "tmpfile"};

bool isWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

/// True if the word at `at` is the name of a function of the system and not one of our own classes.
bool isTheSystems(const std::string& code, std::size_t at) {
    const std::string before = code.substr(0, at);
    if (before.ends_with("std::")) {
        return true;
    }
    return !before.ends_with('.') && !before.ends_with("->") &&
           (!before.ends_with("::") || before.size() < 3 || !isWordCharacter(before[before.size() - 3]));
}

std::set<std::string> callsIn(const std::string& text) {
    const std::string code = codeOf(text);
    std::set<std::string> found;
    for (std::size_t at = 0; at < code.size();) {
        if (!isWordCharacter(code[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < code.size() && isWordCharacter(code[end])) {
            ++end;
        }
        const std::string word = code.substr(at, end - at);
        if (end < code.size() && code[end] == '(' && callsOnFiles.contains(word) && isTheSystems(code, at)) {
            found.insert(word);
        }
        at = end;
    }
    return found;
}

} // namespace

TEST(WatchedCalls, AreAllThatTheFileLayerMakes) {
    std::set<std::string> made;
    for (const SourceFile& file : productFiles(ROMIKA_SOURCE_DIR)) {
        if (file.path.starts_with("platform/posix/")) {
            made.merge(callsIn(file.text));
        }
    }
    std::istringstream list(ROMIKA_WATCHED_CALLS);
    std::set<std::string> watched;
    for (std::string call; list >> call;) {
        watched.insert(call);
    }
    EXPECT_EQ(made, watched);
}

TEST(WatchedCalls, AreToldFromFunctionsOfOurOwn) {
    EXPECT_EQ(callsIn("if (::rename(a, b) != 0 || std::rename(a, b) != 0) { open(\"link(\"); } // stat(x)"),
              (std::set<std::string>{"open", "rename"}));
    EXPECT_EQ(callsIn("file.read(); file->write(); void Files::open() {} reopen(1); struct stat status {};"),
              std::set<std::string>{});
}
