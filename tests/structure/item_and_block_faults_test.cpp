// Inserting, deleting and moving items, copying, moving and clearing blocks that fail, or die, at their 1st, 2nd, 3rd ...
// file call, once and from then on. Whatever happens, the next opening has the old pair of data file and K file or the new
// one, and nothing else of theirs is in the folder.

#include "structure/block_operations.h"
#include "structure/item_operations.h"

#include "sheet/failure_recovery.h"
#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "support/faulty_files.h"
#include "support/forked_child.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <sys/wait.h>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;
using Operation = std::function<void(ZORMOD&)>;

struct Pair {
    std::string data;
    std::string items;
    bool operator==(const Pair&) const = default;
};

/// A table of four items and six records, and a running copy of the program whose files may fail.
struct FaultWorld : TestWorld {
    FaultWorld()
        : faulty(files), copy(Platform{clipboard, clock, beeper, faulty, codePage, dialogs, screen, commands, forms,
                                       eventLoop, printer}) {
        makeTable("t.txt", {{u"ID", u"L", 3}, {u"氏名", u"L", 6}, {u"年齢", u"R", 3}, {u"組", u"L", 4}},
                  {{u"1", u"山田", u"40", u"東"},
                   {u"2", u"鈴木", u"7", u"西"},
                   {u"3", u"", u"101", u""},
                   {u"4", u"佐藤", u"", u"北"},
                   {u"5", u"a", u"1", u"南"},
                   {u"6", u"b", u"2", u"z"}});
        copy.file = zormod.file;
        copy.file.fileDrive = zormod.file.programFolder.substr(0, 1);
        copy.file.fileName = zormod.file.programFolder.substr(2) + u"t.txt";
        zormod.file = copy.file;
        open(copy);
        before = now();
    }
    static void open(ZORMOD& state) {
        const FileIdentity& file = state.file;
        state.files.tableLock = state.platform.files.lockTable(fullPath(file.fileDrive, file.fileName));
        recoverTable(state, file.fileName, file.fileDrive);
        ASSERT_EQ(readItemFile(state, file.fileName, file.fileDrive), Text());
        openDataFile(state);
        fillFirstWindow(state);
    }
    Pair now() const { return {bytesOf("t.txt"), bytesOf("kt.txt")}; }
    void expectOldOrNew(const Pair& after, const std::string& where) {
        copy.files.tableLock.reset();
        closeAllFiles(copy);
        open(zormod);
        EXPECT_TRUE(now() == before || now() == after) << where;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            const std::string name = entry.path().filename().string();
            EXPECT_TRUE(name == "t.txt" || name == "kt.txt" || name.ends_with("ZORCLip")) << where << ": " << name;
        }
    }

    FaultyFiles faulty;
    ZORMOD copy;
    Pair before;
};

void selectBlock(ZORMOD& zormod, std::int32_t record, std::int16_t item) {
    zormod.selection = {1, 2, 5, 0, 2, 0};
    zormod.position.curRecord = record;
    zormod.position.curItem = item;
}

const std::vector<Operation> operations = {
    [](ZORMOD& zormod) { insertItems(zormod, 1, 2); },
    [](ZORMOD& zormod) { deleteItems(zormod, 1, 2); },
    [](ZORMOD& zormod) { deleteItems(zormod, 0, 0); },
    [](ZORMOD& zormod) { moveItems(zormod, 2, 3, 0); },
    [](ZORMOD& zormod) {
        selectBlock(zormod, 3, 1);
        copyBlock(zormod);
    },
    [](ZORMOD& zormod) {
        selectBlock(zormod, 1, 1);
        moveBlock(zormod);
    },
    [](ZORMOD& zormod) { clearRange(zormod, 2, 5, 1, 2); },
};

Pair newPair(const Operation& operation) {
    FaultWorld world;
    operation(world.copy);
    EXPECT_NE(world.now().data, world.before.data);
    return world.now();
}

bool failsAt(int n, const Operation& operation, Lasting lasting, const Pair& after) {
    const std::string where = "call " + std::to_string(n);
    FaultWorld world;
    world.dialogs.expectedMessages = 4;
    world.faulty.failAt(n, Counted::calls, lasting);
    try {
        operation(world.copy);
    } catch (const RuntimeFailure& failure) {
        putStateRight(world.copy, failure);
    }
    const bool met = world.faulty.faults() > 0;
    world.faulty.heal();
    EXPECT_FALSE(world.dialogs.progressOpen) << where;
    if (hasTable(world.copy)) {
        // What the program goes on with fits together already, in memory too.
        EXPECT_TRUE(world.now() == world.before || world.now() == after) << where << ", the running copy";
        EXPECT_EQ(itemFileBytes(world.copy, world.copy.items, world.copy.items.itemCount), world.now().items) << where;
    }
    world.expectOldOrNew(after, where);
    return met;
}

bool diesAt(int n, const Operation& operation, const Pair& after) {
    FaultWorld world;
    ForkedChild child([&](const ChildSide&) {
        world.faulty.failAt(n, Counted::calls, Lasting::once, Kind::kill);
        operation(world.copy);
        return true;
    });
    const int status = child.end();
    world.expectOldOrNew(after, "killed at call " + std::to_string(n));
    const bool died = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    EXPECT_TRUE(died || (status == 0 && world.now() == after));
    return died;
}

} // namespace

TEST(ItemAndBlockFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Operation& operation : operations) {
        const Pair after = newPair(operation);
        for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn}) {
            int n = 1;
            while (failsAt(n, operation, lasting, after)) {
                ++n;
            }
            EXPECT_GT(n, 15);
        }
    }
}

TEST(ItemAndBlockFaults, AKillAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Operation& operation : operations) {
        const Pair after = newPair(operation);
        int n = 1;
        while (diesAt(n, operation, after)) {
            ++n;
        }
        EXPECT_GT(n, 15);
    }
}
