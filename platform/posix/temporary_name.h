#pragma once
// The name of a file that is written before it takes a name of the user's. It goes away with its owner, whatever ends the
// work, unless the file has been put in place before; only a kill leaves it behind. Used by hidden_files and
// replacement_file.

#include <string>
#include <unistd.h>
#include <utility>

/// Owns the name of a file; an empty one owns nothing.
class TemporaryName {
public:
    TemporaryName() = default;
    /// Takes over the native `path` of a file that has been made by the caller.
    explicit TemporaryName(std::string path) : path_(std::move(path)) {}
    TemporaryName(TemporaryName&& other) noexcept : path_(std::exchange(other.path_, {})) {}
    TemporaryName& operator=(TemporaryName&& other) noexcept {
        path_.swap(other.path_);
        return *this;
    }
    ~TemporaryName() {
        if (!path_.empty()) {
            unlink(path_.c_str());
        }
    }

    const std::string& path() const { return path_; }
    /// The file has another name now, or belongs to somebody else: nothing is deleted any more.
    void giveUp() { path_.clear(); }

private:
    std::string path_;
};
