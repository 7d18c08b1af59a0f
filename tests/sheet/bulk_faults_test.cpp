// A rewrite that fails, or dies, at its 1st, 2nd, 3rd ... file call, once and from then on. Whatever happens, the next
// opening has the old pair of data file and K file or the new one, and nothing else is in the folder.

#include "sheet/bulk_world.h"
#include "sheet/failure_recovery.h"
#include "support/forked_child.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <sys/wait.h>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;
using Operation = std::function<BulkEnd(ZORMOD&)>;

struct Pair {
    std::string data;
    std::string items;
    bool operator==(const Pair&) const = default;
};

Pair pairOf(const BulkWorld& world) { return {world.bytesOf("t.txt"), world.bytesOf("kt.txt")}; }

/// The shared state of another copy of the program, whose files may fail.
struct FaultyCopy {
    explicit FaultyCopy(BulkWorld& world)
        : faulty(world.files), zormod(Platform{world.clipboard, world.clock, world.beeper, faulty, world.codePage,
                                               world.dialogs, world.screen, world.commands, world.forms,
                                               world.eventLoop}) {
        zormod.file = world.zormod.file;
        world.zormod.files.tableLock.reset();
        closeAllFiles(world.zormod);
    }
    /// As every opening of a table does it.
    void open() {
        zormod.files.tableLock = faulty.lockTable(fullPath(zormod.file.fileDrive, zormod.file.fileName));
        recoverTable(zormod, zormod.file.fileName, zormod.file.fileDrive);
        ASSERT_EQ(readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive), Text());
        openDataFile(zormod);
        fillFirstWindow(zormod);
    }
    FaultyFiles faulty;
    ZORMOD zormod;
};

/// What the operation makes of the table when nothing goes wrong.
Pair newPair(const Operation& operation) {
    BulkWorld world;
    EXPECT_EQ(operation(world.zormod), BulkEnd::done);
    return pairOf(world);
}

void expectOldOrNew(BulkWorld& world, const Pair& before, const Pair& after, const std::string& where) {
    FaultyCopy next(world);
    next.open();
    const Pair now = pairOf(world);
    EXPECT_TRUE(now == before || now == after) << where;
    EXPECT_EQ(world.entries(), tableAlone) << where;
    EXPECT_EQ(next.zormod.items.itemWidth[0], now.items.find("2000 ' 6\r\n") != std::string::npos ? 6 : 4) << where;
}

/// Runs the operation with the fault at the `n`th call, as the guard round the handlers does. False once no call is left.
bool failsAt(int n, const Operation& operation, Lasting lasting, const Pair& after) {
    const std::string where = "call " + std::to_string(n);
    BulkWorld world;
    const Pair before = pairOf(world);
    bool met = false;
    {
        FaultyCopy copy(world);
        copy.open();
        world.dialogs.expectedMessages = 3;
        copy.faulty.failAt(n, Counted::calls, lasting);
        try {
            operation(copy.zormod);
        } catch (const RuntimeFailure& failure) {
            putStateRight(copy.zormod, failure);
        }
        met = copy.faulty.faults() > 0;
        EXPECT_FALSE(world.dialogs.progressOpen) << where;
        if (hasTable(copy.zormod)) {
            // What the program goes on with fits together already.
            const Pair now = pairOf(world);
            EXPECT_TRUE(now == before || now == after) << where << ", the running copy";
        }
    }
    expectOldOrNew(world, before, after, where);
    return met;
}

bool diesAt(int n, const Operation& operation, const Pair& after) {
    BulkWorld world;
    const Pair before = pairOf(world);
    ForkedChild child([&](const ChildSide&) {
        FaultyCopy copy(world);
        copy.open();
        copy.faulty.failAt(n, Counted::calls, Lasting::once, Kind::kill);
        return operation(copy.zormod) == BulkEnd::done;
    });
    const int status = child.end();
    expectOldOrNew(world, before, after, "killed at call " + std::to_string(n));
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) {
        return true;
    }
    EXPECT_EQ(status, 0);
    EXPECT_EQ(pairOf(world), after);
    return false;
}

const std::vector<Operation> operations = {[](ZORMOD& zormod) { return dropEveryThird(zormod); }, widenFirstItem,
                                           widenInPlace};

} // namespace

TEST(BulkFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Operation& operation : operations) {
        const Pair after = newPair(operation);
        for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn}) {
            int n = 1;
            while (failsAt(n, operation, lasting, after)) {
                ++n;
            }
            EXPECT_GT(n, 30);
        }
    }
}

TEST(BulkFaults, AKillAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Operation& operation : operations) {
        const Pair after = newPair(operation);
        int n = 1;
        while (diesAt(n, operation, after)) {
            ++n;
        }
        EXPECT_GT(n, 30);
    }
}

TEST(BulkFaults, AKillDuringTheRecoveryLeavesItToTheNextOpening) {
    const Pair after = newPair(widenFirstItem);
    int deaths = 0;
    for (int first = 1; first < 200; ++first) {
        BulkWorld world;
        const Pair before = pairOf(world);
        ForkedChild child([&](const ChildSide&) {
            FaultyCopy copy(world);
            copy.open();
            copy.faulty.failAt(first, Counted::writes, Lasting::once, Kind::kill);
            return widenFirstItem(copy.zormod) == BulkEnd::done;
        });
        if (child.end() == 0) {
            break;
        }
        for (int second = 1; second < 200; ++second) {
            ForkedChild recovery([&](const ChildSide&) {
                FaultyCopy copy(world);
                copy.faulty.failAt(second, Counted::calls, Lasting::once, Kind::kill);
                copy.open();
                return true;
            });
            if (recovery.end() == 0) {
                break;
            }
            ++deaths;
        }
        expectOldOrNew(world, before, after, "write " + std::to_string(first));
    }
    EXPECT_GT(deaths, 20);
}
