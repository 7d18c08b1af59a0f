#pragma once
// The tables of the folder that are not open. No key may change a byte of them, but for the two things that a user can
// do to such a table: delete it, and design one of its name.

#include "tests/monkey/row_rules.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// What the commands of a key may do to a table that isn't open.
struct RestLeave {
    bool deletes = false; ///< a table may go
    bool designs = false; ///< its K file may be written anew, and a table come that wasn't there
};

/// The leave that the commands in `ran` give.
RestLeave restLeaveOf(const std::vector<Text>& ran);

/// Watches the pairs of data file and K file in a folder. Cheap enough to look after each key: the bytes are only read
/// when a file was written.
class TablesAtRest {
public:
    /// `names` are those of the data files, `folder` is a native path.
    TablesAtRest(std::string folder, std::vector<std::string> names)
        : folder_(std::move(folder)), names_(std::move(names)) {}
    /// Notes every file as it is now, but for those of the open table: `isOpen` tells whether a name is its data
    /// file's.
    void note(const std::function<bool(const std::string& name)>& isOpen);
    /// Whether each noted file is as it was, or changed as `leave` allows; in that case it is to be noted anew.
    Complaint look(const RestLeave& leave);

private:
    /// What the system changes when a file is written or replaced.
    struct Stamp {
        long long inode = 0;
        long long length = 0;
        long long seconds = 0;
        long long nanoseconds = 0;
        bool operator==(const Stamp&) const = default;
    };
    struct Noted {
        std::string name;
        bool isItemFile = false;
        std::optional<Stamp> stamp; ///< none: there is no such file
        std::string bytes;
    };

    std::string pathOf(const std::string& name) const { return folder_ + "/" + name; }
    static std::optional<Stamp> stampOf(const std::string& path);
    static std::string bytesOf(const std::string& path);
    Complaint lookAt(Noted& file, const RestLeave& leave) const;

    std::string folder_;
    std::vector<std::string> names_;
    std::vector<Noted> noted_;
};
