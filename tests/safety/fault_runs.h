#pragma once
// Runs one writing operation again and again, each time with the fault at the next step, and looks at what is left:
// the files are those from before the operation or those from after it, the user has been told, the program can go on.
// Nothing here depends on which operation it is.

#include "safety/writing_operations.h"

#include <cerrno>
#include <string>
#include <vector>

/// The ways in which a run is spoilt.
enum class FaultWay {
    failsOnce,        ///< one system call fails
    failsFromThenOn,  ///< that call and all later ones of its kind
    shortWrite,       ///< half of a write is done, and no more after it
    kill,             ///< the program is killed between two system calls
    powerCut,         ///< the same, and what was not synced is lost or torn
    syncFails,        ///< one sync fails, the program goes on, and what was not synced is lost or torn later
    recoveryFails,    ///< killed or cut off, and the recovery at the next opening fails, or is cut off, too
    changedMeanwhile, ///< killed or cut off, and the table was edited, brought back or moved before the next opening
};

inline constexpr FaultWay allFaultWays[] = {FaultWay::failsOnce,     FaultWay::failsFromThenOn, FaultWay::shortWrite,
                                            FaultWay::kill,          FaultWay::powerCut,
                                            FaultWay::syncFails,     FaultWay::recoveryFails,
                                            FaultWay::changedMeanwhile};

/// The way in words, for tests and for the table of results.
std::string nameOf(FaultWay way);

/// What came of it.
struct FaultReport {
    int points = 0;                    ///< runs that met a fault, or states of the disk that were opened
    std::vector<std::string> problems; ///< empty: the promise was kept
};

/// How much is tried.
struct FaultScope {
    int randomCuts = 16;         ///< states tried at random for each step of a power cut
    std::size_t mostStates = 12; ///< states of the disk from which recoveries are spoilt
    std::vector<int> recoveryErrors = {EIO}; ///< with which calls of a recovery fail
    bool losesSyncs = false;     ///< the disk says that files are synced and isn't true to it: shows what the runs notice
};
/// The short scope, or, with the environment variable ROMIKA_LONG, the long one.
FaultScope faultScope();

FaultReport runWithFaults(const WritingOperation& operation, FaultWay way, const FaultScope& scope);
