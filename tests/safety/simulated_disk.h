#pragma once
// What a disk holds after a power cut. It replays the steps that the file layer took and keeps two states apart: the
// one that every program sees, and the one that is durable. What was written but not synced may be lost, kept, or torn
// at the sectors, in any order, but a file never grows ahead of the bytes that were written to it; names that were made, changed or deleted but whose folder was not synced may be old or
// new, later ones only if the earlier ones of that folder are. Of a rename from folder to folder the new place counts.
//
// Used by the fault runs; knows nothing of the program.

#include "safety/system_calls.h"

#include <map>
#include <random>
#include <string>
#include <vector>

/// The files of a folder by their paths below it.
using FolderImage = std::map<std::string, std::string>;

/// How much a power cut takes of what isn't durable.
enum class Loss {
    everything, ///< only what was synced is there
    contents,   ///< all names are as they were last, but unsynced contents are gone
    names,      ///< all contents are as they were last, but unsynced names are not
    random,     ///< any sectors and any names
};

/// The disk.
class SimulatedDisk {
public:
    /// A folder in which everything is durable. `watch` tells the numbers of its files.
    SimulatedDisk(const FolderImage& start, const CallWatch& watch);

    /// The steps to come are seen by `watch`, which has found the files as they are and given them numbers of its own.
    void goOnUnder(const CallWatch& watch);
    /// Takes one more step.
    void apply(const DiskStep& step);
    /// What is there after a kill of the program: all steps count.
    FolderImage afterKill() const;
    /// What may be there after a power cut. Sectors of `sectorLength` bytes are kept or lost one by one.
    FolderImage afterPowerCut(Loss loss, std::size_t sectorLength, std::mt19937& random) const;

private:
    struct Contents {
        std::string durable;
        std::string current;
    };
    /// A change of names in one folder: `removed` goes away, then `added` means `file`; an empty name is none.
    struct NameChange {
        std::string folder;
        std::string removed;
        std::string added;
        int file = 0;
    };
    using Names = std::map<std::string, int>;

    void change(const NameChange& change);
    static void carryOut(const NameChange& change, Names& names);
    static std::string torn(const Contents& contents, std::size_t sectorLength, std::mt19937& random);

    std::map<int, Contents> files_;
    Names durableNames_;
    Names names_;
    std::vector<NameChange> unsynced_;
};
