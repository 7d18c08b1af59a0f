#include "safety/fault_runs.h"

#include "safety/folder_image.h"
#include "safety/guarded_run.h"
#include "safety/system_calls.h"
#include "sheet/bulk_rewrite.h"
#include "sheet/change_in_place.h"
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
    std::size_t told; ///< messages that the user heard
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
    const std::size_t told = runGuarded(world, copy.zormod, [&] { operation.run(world, copy.zormod); });
    return {before, imageOf(world.folder.path()), watch.steps(), SimulatedDisk(before, watch), told};
}

/// True for what only a run that is still going on may have in the folder.
bool isOfARun(const std::string& path) {
    const std::string name = path.substr(path.rfind('/') + 1);
    return name.starts_with('.') || name.ends_with(".QQQ") || name.ends_with(".qqq");
}

/// The most that a user should have to hear of one failure. On a disk that fails for good each routine that meets it says
/// so: the operation itself, the refusal of an item file that can't even be read, and the report of the failure.
std::size_t mostTold(const CallFault& fault) {
    return !fault.fromThenOn ? 1 : fault.error == EIO ? 3 : 2;
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
    const auto isGone = [&](const auto& file) {
        return clean.after.contains(file.first) || !now.contains(file.first) || isOfARun(file.first);
    };
    return std::all_of(clean.after.begin(), clean.after.end(), hasAll) &&
           std::all_of(clean.before.begin(), clean.before.end(), isGone);
}

/// At most `count` of `all`, from its beginning to its end.
template <typename Element> std::vector<Element> evenlyChosen(const std::vector<Element>& all, std::size_t count) {
    if (all.size() <= count) {
        return all;
    }
    std::vector<Element> chosen;
    for (std::size_t i = 0; i < count; ++i) {
        chosen.push_back(all[i * all.size() / count]);
    }
    return chosen;
}

/// One loop of an operation over the states and the faults, with its report.
class FaultRuns {
public:
    FaultRuns(const WritingOperation& operation, const FaultScope& scope)
        : operation_(operation), scope_(scope), clean_(cleanRun(operation)), world_(operation) {}

    FaultReport run(FaultWay way);

private:
    using Images = std::set<FolderImage>;

    /// An untouched run that changes nothing, is refused or leaves something lying about would make all of this blind.
    void judgeCleanRun();
    /// Runs `run` for 1, 2, 3 ... until it returns false: the nth call that could be spoilt wasn't made any more.
    void forEachCall(const std::function<bool(int)>& run);
    void fails(const CallFault& fault);
    bool failsAt(int n, const CallFault& fault);
    void useTheTable(const std::string& where, ZORMOD& zormod, int n);
    bool syncFailsAt(int n);
    void crash(bool powerCut);
    void spoilRecovery();
    bool recoveryFailsAt(int n, const FolderImage& image, const CallFault& fault);
    void cutOffRecovery(SimulatedDisk disk, const FolderImage& image);
    /// What is killed may still be in the system's memory alone while the next opening puts it right.
    void cutOffRecoveryOfAKill();
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
    judgeCleanRun();
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
    case FaultWay::syncFails:
        forEachCall([&](int n) { return syncFailsAt(n); });
        break;
    case FaultWay::recoveryFails:
        spoilRecovery();
        cutOffRecoveryOfAKill();
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

void FaultRuns::judgeCleanRun() {
    if (clean_.told != 0) {
        judge("untouched", {"the user was told " + std::to_string(clean_.told) + " times"});
    }
    if (clean_.before == clean_.after) {
        judge("untouched", {"nothing changes"});
    }
    for (const auto& [name, bytes] : clean_.after) {
        if (isOfARun(name)) {
            judge("untouched", {name + " is left"});
        }
    }
}

void FaultRuns::forEachCall(const std::function<bool(int)>& run) {
    int n = 1;
    while (n < mostCalls && run(n)) {
        ++n;
        ++report_.points;
    }
    if (n == mostCalls) {
        judge("after " + std::to_string(n) + " calls", {"there is no end"});
    }
}

void FaultRuns::fails(const CallFault& fault) {
    forEachCall([&](int n) { return failsAt(n, fault); });
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
        if (told > mostTold(fault)) {
            judge(where, {"the user was told " + std::to_string(told) + " times"});
        }
        if (told == 0 && !operation_.failsInSilence && !isDone(imageOf(folder()), clean_)) {
            judge(where, {"the user was not told"});
        }
        judge(where, stateProblems(world_, zormod, operation_.writesRow, operation_.formMayStay));
        if (operation_.writesRow) {
            runGuarded(world_, zormod, [&] { commitRecord(zormod); });
            if (imageOf(folder()) != clean_.after || watch.steps().empty() ||
                watch.steps().back().kind != DiskStep::Kind::syncFile) {
                judge(where, {"the next leave did not write the typed row"});
            }
        } else if (!operation_.next && !operation_.formMayStay && hasTable(zormod)) {
            useTheTable(where, zormod, n);
        }
        closeTable(zormod);
    }
    openAndJudge(where);
    return true;
}

void FaultRuns::useTheTable(const std::string& where, ZORMOD& zormod, int n) {
    // Nothing that changes it: whatever the failed operation has left is worked off by either of these.
    const std::size_t told = runGuarded(world_, zormod, [&] {
        if (n % 2 == 0) {
            bulkRewrite(zormod, {.name = u"記録移動中"}, [](BulkRun& run) {
                run.forEach(1, run.records(), [&](const Bytes& row) { run.writeAsIs(row); });
            });
        } else {
            changeInPlace(zormod, {.name = u"記録移動中", .spans = {{1, 1}}}, [](RecordChanges&) {});
        }
    });
    if (told != 0) {
        judge(where, {"the next operation failed"});
    }
    judge(where, stateProblems(world_, zormod, false, false));
}

bool FaultRuns::syncFailsAt(int n) {
    const std::string where = "sync " + std::to_string(n);
    restore(folder(), clean_.before);
    std::vector<DiskStep> steps;
    std::vector<SimulatedDisk> disk;
    {
        RunningCopy copy(world_);
        if (operation_.opensTable) {
            copy.open(operation_.dataFile());
        }
        CallWatch watch(folder());
        disk.emplace_back(clean_.before, watch);
        watch.failAt(n, {.error = EIO, .onlySyncs = true});
        runGuarded(world_, copy.zormod, [&] { operation_.run(world_, copy.zormod); });
        const bool met = watch.faults() > 0;
        closeTable(copy.zormod);
        if (!met) {
            return false;
        }
        steps = watch.steps();
    }
    for (const bool hadArrived : {false, true}) {
        SimulatedDisk after = disk.front();
        for (DiskStep step : steps) {
            const bool arrives = hadArrived && step.kind == DiskStep::Kind::syncFailed;
            step.kind = arrives ? DiskStep::Kind::syncFile : step.kind;
            after.apply(step);
        }
        for (const FolderImage& image : statesOf(after, {}, true)) {
            restore(folder(), image);
            openAndJudge(where + (hadArrived ? " failed behind its data" : " failed"));
        }
    }
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
    return evenlyChosen(unfinished, scope_.mostStates);
}

bool FaultRuns::recoveryFailsAt(int n, const FolderImage& image, const CallFault& fault) {
    const std::string where = "recovery failing at call " + std::to_string(n) + " of error " + std::to_string(fault.error);
    restore(folder(), image);
    bool met = false;
    {
        RunningCopy copy(world_);
        CallWatch watch(folder());
        watch.failAt(n, fault);
        const std::size_t told = runGuarded(world_, copy.zormod, [&] { next(copy); });
        met = watch.faults() > 0;
        watch.heal();
        if (told > mostTold(fault)) {
            judge(where, {"the user was told " + std::to_string(told) + " times"});
        }
        if (told == 0 && !hasTable(copy.zormod)) {
            judge(where, {"no table, and the user was not told"});
        }
        judge(where, stateProblems(world_, copy.zormod, false, false));
        closeTable(copy.zormod);
    }
    openAndJudge(where);
    return met;
}

void FaultRuns::spoilRecovery() {
    for (const FolderImage& image : unfinishedStates()) {
        for (const int error : scope_.recoveryErrors) {
            for (const bool fromThenOn : {false, true}) {
                forEachCall([&](int n) {
                    return recoveryFailsAt(n, image, {.error = error, .fromThenOn = fromThenOn});
                });
            }
        }
        restore(folder(), image);
        const SimulatedDisk disk(image, CallWatch(folder())); // of which all is durable
        cutOffRecovery(disk, image);
    }
}

void FaultRuns::cutOffRecovery(SimulatedDisk disk, const FolderImage& image) {
    restore(folder(), image);
    std::vector<DiskStep> steps;
    {
        RunningCopy copy(world_);
        const CallWatch watch(folder());
        disk.goOnUnder(watch);
        runGuarded(world_, copy.zormod, [&] { next(copy); });
        closeTable(copy.zormod);
        steps = watch.steps();
    }
    for (const FolderImage& second : statesOf(disk, steps, true)) {
        restore(folder(), second);
        ++report_.points;
        openAndJudge("recovery cut off, state " + std::to_string(report_.points));
    }
}

void FaultRuns::cutOffRecoveryOfAKill() {
    std::vector<SimulatedDisk> killed;
    SimulatedDisk disk = clean_.disk;
    for (const DiskStep& step : clean_.steps) {
        disk.apply(step);
        if (!problemsOf(disk.afterKill(), clean_.before, clean_.after, operation_).empty()) {
            killed.push_back(disk);
        }
    }
    for (const SimulatedDisk& state : evenlyChosen(killed, scope_.mostStates)) {
        cutOffRecovery(state, state.afterKill());
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
    case FaultWay::syncFails:
        return "a sync fails";
    case FaultWay::recoveryFails:
        return "again in recovery";
    case FaultWay::changedMeanwhile:
        return "changed meanwhile";
    }
    return {};
}

FaultScope faultScope() {
    return std::getenv("ROMIKA_LONG") == nullptr
               ? FaultScope{}
               : FaultScope{.randomCuts = 200, .mostStates = 1000, .recoveryErrors = {EIO, ENOSPC, EACCES}};
}

FaultReport runWithFaults(const WritingOperation& operation, FaultWay way, const FaultScope& scope) {
    const PretendedSyncs pretended;
    const FoldersInMemory inMemory;
    return FaultRuns(operation, scope).run(way);
}
