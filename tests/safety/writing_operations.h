#pragma once
// Every operation of the program that writes files, each with a table to begin with. The fault runs let each of them
// fail and die at every step; an operation that is not in this list is not known to be safe. A new one is added here
// and nowhere else.

#include "safety/system_calls.h"
#include "support/test_world.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// One copy of the program, from its start to its end: a file layer and a shared state of its own on the folder of
/// `world`, whose doubles it shares.
struct RunningCopy {
    explicit RunningCopy(TestWorld& world);
    /// Opens the table `name`, a path below the folder with "/", as the program does, recovery included. False: refused,
    /// and told.
    bool open(const std::string& name);

    PosixFiles files;
    ZORMOD zormod;
};

/// How an operation is run and what may come of it.
struct WritingOperation {
    std::string name; ///< as the table of results shows it
    /// Makes further files beside the table t.txt, which is always there and, with `opensTable`, open.
    std::function<void(TestWorld&)> prepare{};
    /// The table lies in this folder below the program's, such as "disk/", and on another disk; empty: beside the program.
    std::string disk{};
    std::function<void(TestWorld&, ZORMOD&)> run;
    bool opensTable = true;
    /// Groups of files that are only together as before the operation or as after it. A file that is in no group is
    /// old or new for itself.
    std::vector<std::set<std::string>> pairs = {{"t.txt", "kt.txt"}};
    /// Files that may be gone alone: the operation takes a pair away one by one, or a file that is out of date first.
    std::set<std::string> goneAlone{};
    /// Files that are new before anything else changes: what is about to be removed from the table is kept in them.
    std::set<std::string> first{};
    /// The operation ends in writing the current row, and the next leave of the row writes it again.
    bool writesRow = false;
    /// A failure is nobody's business: what wasn't written is written at the next start.
    bool failsInSilence = false;
    /// The form stays open when it has told the user that it failed.
    bool formMayStay = false;
    /// What a user does next after a crash; by default the table t.txt is opened.
    std::function<void(TestWorld&, RunningCopy&)> next{};

    /// The names of data file and item file below the program's folder.
    std::string dataFile() const { return disk + "t.txt"; }
    std::string itemFile() const { return disk + "kt.txt"; }
};

/// All of them.
const std::vector<WritingOperation>& writingOperations();

/// The world of an operation: seven records in two items, and what the operation wants beside them.
struct SafetyWorld : TestWorld {
    explicit SafetyWorld(const WritingOperation& operation);

private:
    std::optional<SecondDisk> disk_;
};
