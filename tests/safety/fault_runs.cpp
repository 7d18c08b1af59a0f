#include "safety/fault_runs.h"

#include "safety/folder_image.h"
#include "safety/guarded_run.h"
#include "safety/system_calls.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <unistd.h>

namespace {

constexpr int mostCalls = 5000; ///< a loop over the calls that doesn't end by then never will

/// What an untouched run makes of the folder, and the steps it takes.
struct CleanRun {
    FolderImage before;
    FolderImage after;
    std::vector<DiskStep> steps;
    SimulatedDisk disk;
};

/// Makes temporary folders in memory, where there is a disk in memory: what is durable is worked out, not measured.
class FoldersInMemory {
public:
    FoldersInMemory() : before_(std::filesystem::temp_directory_path()) {
        if (std::filesystem::is_directory(inMemory) && access(inMemory, W_OK) == 0) {
            setenv("TMPDIR", inMemory, 1);
        }
    }
    ~FoldersInMemory() { setenv("TMPDIR", before_.c_str(), 1); }
    FoldersInMemory(const FoldersInMemory&) = delete;
    FoldersInMemory& operator=(const FoldersInMemory&) = delete;

private:
    static constexpr const char* inMemory = "/dev/shm";
    std::filesystem::path before_;
};

void closeTable(ZORMOD& zormod) {
    closeAllFiles(zormod);
    zormod.files.tableLock.reset();
}

/// How many messages the user heard of `work`.
std::size_t runGuarded(TestWorld& world, ZORMOD& zormod, const std::function<void()>& work) {
    return heardOf(world, zormod, work).size();
}

CleanRun cleanRun(const WritingOperation& operation) {
    SafetyWorld world(operation);
    RunningCopy copy(world);
    if (operation.opensTable) {
        copy.open(operation.dataFile());
    }
    const FolderImage before = imageOf(world.folder.path());
    CallWatch watch(world.folder.path());
    runGuarded(world, copy.zormod, [&] { operation.run(world, copy.zormod); });
    return {before, imageOf(world.folder.path()), watch.steps(), SimulatedDisk(before, watch)};
}

/// What is wrong with a program that goes on after a failure.
std::vector<std::string> stateProblems(TestWorld& world, ZORMOD& zormod, bool rowWaits,
                                       bool formMayStay) {
    std::vector<std::string> problems;
    const auto expect = [&](bool holds, const std::string& what) {
        if (!holds) {
            problems.push_back(what);
        }
    };
    expect(!world.dialogs.progressOpen, "the progress form is open");
    expect(zormod.taskWord.empty() || formMayStay, "the task word is kept");
    for (int fileNo = 2; fileNo <= 4; ++fileNo) {
        expect(zormod.files.byNumber[fileNo] == nullptr, "file " + std::to_string(fileNo) + " is open");
    }
    if (!hasTable(zormod)) {
        return problems;
    }
    RunningCopy other(world);
    other.zormod.file = zormod.file;
    expect(readItemFile(other.zormod, zormod.file.fileName, zormod.file.fileDrive).empty(), "the item file is bad");
    expect(itemFileText(other.zormod.items, other.zormod.items.itemCount, u"") ==
               itemFileText(zormod.items, zormod.items.itemCount, u""),
           "the items are not those of the item file");
    std::int16_t start = 1;
    for (int item = 0; item <= zormod.items.itemCount; ++item) {
        expect(zormod.items.itemStart[item] == start, "itemStart is not computed");
        start = static_cast<std::int16_t>(start + zormod.items.itemWidth[item]);
    }
    const Position& position = zormod.position;
    expect(position.curRecord >= 1 && position.curRecord <= recordCount(zormod) + 1, "the position is nowhere");
    for (std::int32_t row = 1; row <= position.windowRows; ++row) {
        const std::int32_t record = position.windowFirst + row - 1;
        if (record > recordCount(zormod) || (rowWaits && record == position.curRecord)) {
            continue;
        }
        Bytes bytes;
        readRecord(zormod, 1, record, bytes);
        expect(bytes == zormod.window.recordWindow[rowSlot(row)], "row " + std::to_string(row) + " is not the file's");
    }
    return problems;
}

/// True if the operation has done its work; what is left to tidy at the next opening may stand beside it.
bool isDone(const FolderImage& now, const CleanRun& clean) {
    const auto hasAll = [&](const auto& file) { return now.contains(file.first) && now.at(file.first) == file.second; };
    const auto isGone = [&](const auto& file) { return clean.after.contains(file.first) || !now.contains(file.first); };
    return std::all_of(clean.after.begin(), clean.after.end(), hasAll) &&
           std::all_of(clean.before.begin(), clean.before.end(), isGone);
}

/// One loop of an operation over the states and the faults, with its report.
class FaultRuns {
public:
    FaultRuns(const WritingOperation& operation, const FaultScope& scope)
        : operation_(operation), scope_(scope), clean_(cleanRun(operation)), world_(operation) {}

    FaultReport run(FaultWay way);

private:
    using Images = std::set<FolderImage>;

    void fails(const CallFault& fault);
    bool failsAt(int n, const CallFault& fault);
    void crash(bool powerCut);
    void spoilRecovery();
    void changeMeanwhile();
    /// Ways in which a table in the state `image` may be changed before its next opening, each with its judgement.
    void bringBack(const FolderImage& image);
    void replaceByAnother(const FolderImage& image);
    void edit(const FolderImage& image);
    void moveAway(const FolderImage& image);
    /// Opens the table `name` of `changed`. The user is told once if what was left of the operation can't be used, and
    /// nothing otherwise. Returns how many messages they heard.
    std::size_t openChanged(const std::string& where, const FolderImage& changed, const std::string& name);
    void expectUntouched(const std::string& where, const FolderImage& changed);

    /// All states that a disk may be in while `steps` are carried out on it.
    Images statesOf(SimulatedDisk disk, const std::vector<DiskStep>& steps, bool powerCut) const;
    /// Of the states in which something is left to do, as many as the scope allows, evenly chosen.
    std::vector<FolderImage> unfinishedStates() const;
    /// Opens as the user does next and judges what is there then.
    void openAndJudge(const std::string& where);
    void next(RunningCopy& copy);
    void judge(const std::string& where, const std::vector<std::string>& problems);
    std::string folder() const { return world_.folder.path(); }

    const WritingOperation& operation_;
    const FaultScope scope_;
    const CleanRun clean_;
    SafetyWorld world_;
    FaultReport report_;
};

FaultReport FaultRuns::run(FaultWay way) {
    switch (way) {
    case FaultWay::failsOnce:
    case FaultWay::failsFromThenOn:
        for (const int error : {EIO, ENOSPC, EACCES}) {
            fails({.error = error, .fromThenOn = way == FaultWay::failsFromThenOn});
        }
        break;
    case FaultWay::shortWrite:
        fails({.error = ENOSPC, .shortWrite = true});
        break;
    case FaultWay::kill:
    case FaultWay::powerCut:
        crash(way == FaultWay::powerCut);
        break;
    case FaultWay::recoveryFails:
        spoilRecovery();
        break;
    case FaultWay::changedMeanwhile:
        changeMeanwhile();
        break;
    }
    return report_;
}

void FaultRuns::judge(const std::string& where, const std::vector<std::string>& problems) {
    for (const auto& problem : problems) {
        report_.problems.push_back(operation_.name + ", " + where + ": " + problem);
    }
}

void FaultRuns::fails(const CallFault& fault) {
    for (int n = 1; n < mostCalls && failsAt(n, fault); ++n) {
        ++report_.points;
    }
}

bool FaultRuns::failsAt(int n, const CallFault& fault) {
    const std::string where = "call " + std::to_string(n) + " of error " + std::to_string(fault.error);
    restore(folder(), clean_.before);
    {
        RunningCopy copy(world_);
        ZORMOD& zormod = copy.zormod;
        if (operation_.opensTable) {
            copy.open(operation_.dataFile());
        }
        CallWatch watch(folder());
        watch.failAt(n, fault);
        const std::size_t told = runGuarded(world_, zormod, [&] { operation_.run(world_, zormod); });
        const bool met = watch.faults() > 0;
        watch.heal();
        if (!met) {
            return false;
        }
        // On a disk that fails for good each routine that meets it says so: the operation itself, the refusal of an item
        // file that can't even be read, and the report of the failure.
        const std::size_t most = !fault.fromThenOn ? 1 : fault.error == EIO ? 3 : 2;
        if (told > most) {
            judge(where, {"the user was told " + std::to_string(told) + " times"});
        }
        if (told == 0 && !isDone(imageOf(folder()), clean_)) {
            judge(where, {"the user was not told"});
        }
        judge(where, stateProblems(world_, zormod, operation_.writesRow, operation_.formMayStay));
        if (operation_.writesRow) {
            runGuarded(world_, zormod, [&] { commitRecord(zormod); });
            if (imageOf(folder()) != clean_.after || watch.steps().empty() ||
                watch.steps().back().kind != DiskStep::Kind::syncFile) {
                judge(where, {"the next leave did not write the typed row"});
            }
        }
        closeTable(zormod);
    }
    openAndJudge(where);
    return true;
}

void FaultRuns::next(RunningCopy& copy) {
    if (operation_.next) {
        operation_.next(world_, copy);
    } else {
        copy.open(operation_.dataFile());
    }
}

void FaultRuns::openAndJudge(const std::string& where) {
    RunningCopy copy(world_);
    const std::size_t told = runGuarded(world_, copy.zormod, [&] { next(copy); });
    if (told != 0 || !hasTable(copy.zormod)) {
        judge(where, {"the table doesn't open"});
    }
    judge(where, stateProblems(world_, copy.zormod, false, false));
    closeTable(copy.zormod);
    judge(where, problemsOf(imageOf(folder()), clean_.before, clean_.after, operation_));
}

FaultRuns::Images FaultRuns::statesOf(SimulatedDisk disk, const std::vector<DiskStep>& steps, bool powerCut) const {
    Images images;
    std::mt19937 random(20250101); // fixed, so that a failure comes again
    for (std::size_t done = 0;; ++done) {
        images.insert(disk.afterKill());
        if (powerCut) {
            for (const Loss loss : {Loss::everything, Loss::contents, Loss::names}) {
                images.insert(disk.afterPowerCut(loss, 512, random));
            }
            for (int i = 0; i < scope_.randomCuts; ++i) {
                images.insert(disk.afterPowerCut(Loss::random, i % 2 == 0 ? 512 : 4096, random));
            }
        }
        if (done == steps.size()) {
            return images;
        }
        if (!scope_.losesSyncs || steps[done].kind != DiskStep::Kind::syncFile) {
            disk.apply(steps[done]);
        }
    }
}

void FaultRuns::crash(bool powerCut) {
    for (const FolderImage& image : statesOf(clean_.disk, clean_.steps, powerCut)) {
        restore(folder(), image);
        ++report_.points;
        openAndJudge("state " + std::to_string(report_.points));
    }
}

std::vector<FolderImage> FaultRuns::unfinishedStates() const {
    std::vector<FolderImage> unfinished;
    for (const FolderImage& image : statesOf(clean_.disk, clean_.steps, true)) {
        if (!problemsOf(image, clean_.before, clean_.after, operation_).empty()) {
            unfinished.push_back(image);
        }
    }
    if (unfinished.size() <= scope_.mostStates) {
        return unfinished;
    }
    std::vector<FolderImage> chosen;
    for (std::size_t i = 0; i < scope_.mostStates; ++i) {
        chosen.push_back(unfinished[i * unfinished.size() / scope_.mostStates]);
    }
    return chosen;
}

void FaultRuns::spoilRecovery() {
    for (const FolderImage& image : unfinishedStates()) {
        for (const bool fromThenOn : {false, true}) {
            bool met = true;
            for (int n = 1; met && n < mostCalls; ++n) {
                restore(folder(), image);
                {
                    RunningCopy copy(world_);
                    CallWatch watch(folder());
                    watch.failAt(n, {.error = EIO, .fromThenOn = fromThenOn});
                    runGuarded(world_, copy.zormod, [&] { next(copy); });
                    met = watch.faults() > 0;
                    closeTable(copy.zormod);
                }
                report_.points += met ? 1 : 0;
                openAndJudge("recovery failing at call " + std::to_string(n));
            }
        }
        restore(folder(), image);
        std::vector<DiskStep> steps;
        std::vector<SimulatedDisk> disk;
        {
            RunningCopy copy(world_);
            CallWatch watch(folder());
            disk.emplace_back(image, watch);
            runGuarded(world_, copy.zormod, [&] { next(copy); });
            closeTable(copy.zormod);
            steps = watch.steps();
        }
        for (const FolderImage& second : statesOf(disk.front(), steps, true)) {
            restore(folder(), second);
            ++report_.points;
            openAndJudge("recovery cut off, state " + std::to_string(report_.points));
        }
    }
}

void FaultRuns::changeMeanwhile() {
    if (operation_.next) {
        return; // the table t.txt is not what it is about
    }
    for (const FolderImage& image : unfinishedStates()) {
        if (image.contains(operation_.dataFile()) && image.contains(operation_.itemFile())) {
            bringBack(image);
            replaceByAnother(image);
            edit(image);
            moveAway(image);
        }
    }
}

std::size_t FaultRuns::openChanged(const std::string& where, const FolderImage& changed, const std::string& name) {
    restore(folder(), changed);
    RunningCopy copy(world_);
    const std::size_t told = runGuarded(world_, copy.zormod, [&] { copy.open(name); });
    closeTable(copy.zormod);
    ++report_.points;
    const FolderImage now = imageOf(folder());
    const bool isSetAside = std::any_of(now.begin(), now.end(), [](const auto& file) {
        return file.first.find(".unused-") != std::string::npos;
    });
    if (told != (isSetAside ? 1U : 0U)) {
        judge(where, {"the user was told " + std::to_string(told) + " times"});
    }
    return told;
}

void FaultRuns::expectUntouched(const std::string& where, const FolderImage& changed) {
    const FolderImage now = imageOf(folder());
    for (const auto& name : {operation_.dataFile(), operation_.itemFile()}) {
        if (!now.contains(name) || now.at(name) != changed.at(name)) {
            judge(where, {"the recovery wrote to " + name});
        }
    }
}

void FaultRuns::bringBack(const FolderImage& image) {
    FolderImage changed = image;
    for (const auto& name : {operation_.dataFile(), operation_.itemFile()}) {
        changed[name] = clean_.before.at(name);
    }
    openChanged("brought back", changed, operation_.dataFile());
    expectUntouched("brought back", changed);
    openAndJudge("brought back, opened again");
}

void FaultRuns::replaceByAnother(const FolderImage& image) {
    // Of the same table, later: some rows differ, one has come, the memo is another.
    FolderImage changed = image;
    std::string records = clean_.before.at(operation_.dataFile());
    for (std::size_t at = 0; at < records.size(); at += recordLength) {
        records.replace(at + 5, 3, "new");
    }
    changed[operation_.dataFile()] = records + records.substr(0, recordLength);
    std::string items = clean_.before.at(operation_.itemFile());
    changed[operation_.itemFile()] = items.replace(items.find("memo"), 4, "later");
    openChanged("another version", changed, operation_.dataFile());
    expectUntouched("another version", changed);
}

void FaultRuns::edit(const FolderImage& image) {
    // That record is theirs, whatever becomes of the others. If it stands among new records, and the items can't be known
    // to belong to it, the user must know that.
    const FolderImage& before = clean_.before;
    const FolderImage& after = clean_.after;
    const bool isNewUnderOldItems =
        image.at(operation_.dataFile()) == after.at(operation_.dataFile()) &&
        before.at(operation_.dataFile()) != after.at(operation_.dataFile()) &&
        image.at(operation_.itemFile()) == before.at(operation_.itemFile()) &&
        before.at(operation_.itemFile()) != after.at(operation_.itemFile());
    for (const std::size_t record : {1U, 3U, 6U}) {
        FolderImage changed = image;
        std::string& records = changed[operation_.dataFile()];
        const std::size_t at = record * recordLength + 5;
        if (at + 3 > records.size()) {
            continue;
        }
        records.replace(at, 3, "ABC");
        const std::size_t told = openChanged("edited", changed, operation_.dataFile());
        if (isNewUnderOldItems && told == 0) {
            judge("edited", {"the items don't fit, and the user doesn't know"});
        }
        if (imageOf(folder()).at(operation_.dataFile()).compare(at, 3, "ABC") != 0) {
            judge("edited", {"the recovery wrote over record " + std::to_string(record + 1)});
        }
    }
}

void FaultRuns::moveAway(const FolderImage& image) {
    // To another folder, with the hidden files beside it; a disk as a whole.
    const std::string moved = "moved/";
    const auto isOfTable = [&](const std::string& name) {
        return operation_.disk.empty() ? name.ends_with("t.txt") : name.starts_with(operation_.disk);
    };
    FolderImage changed;
    for (const auto& [name, bytes] : image) {
        changed[isOfTable(name) ? moved + name.substr(operation_.disk.size()) : name] = bytes;
    }
    openChanged("moved", changed, moved + "t.txt");
    FolderImage back;
    for (const auto& [name, bytes] : imageOf(folder())) {
        back[name.starts_with(moved) ? operation_.disk + name.substr(moved.size()) : name] = bytes;
    }
    judge("moved", problemsOf(back, clean_.before, clean_.after, operation_));
}

} // namespace

std::string nameOf(FaultWay way) {
    switch (way) {
    case FaultWay::failsOnce:
        return "fails once";
    case FaultWay::failsFromThenOn:
        return "fails from then on";
    case FaultWay::shortWrite:
        return "half a write";
    case FaultWay::kill:
        return "kill";
    case FaultWay::powerCut:
        return "power cut";
    case FaultWay::recoveryFails:
        return "again in recovery";
    case FaultWay::changedMeanwhile:
        return "changed meanwhile";
    }
    return {};
}

FaultScope faultScope() {
    return std::getenv("ROMIKA_LONG") == nullptr ? FaultScope{} : FaultScope{.randomCuts = 200, .mostStates = 1000};
}

FaultReport runWithFaults(const WritingOperation& operation, FaultWay way, const FaultScope& scope) {
    const PretendedSyncs pretended;
    const FoldersInMemory inMemory;
    return FaultRuns(operation, scope).run(way);
}
