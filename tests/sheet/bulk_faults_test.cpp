// A rewrite that fails, or dies, at its 1st, 2nd, 3rd ... file call, once and from then on. Whatever happens, the next
// opening has the old pair of data file and K file or the new one, and nothing else is in the folder.

#include "sheet/bulk_world.h"
#include "sheet/failure_recovery.h"
#include "support/faulty_copy.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;
using Operation = std::function<BulkEnd(ZORMOD&)>;

/// The table is nobody's. A child that is to open it must not be born while its parent holds the claim.
void letGo(BulkWorld& world) {
    world.zormod.files.tableLock.reset();
    closeAllFiles(world.zormod);
}

/// The shared state of another copy of the program, whose files may fail.
struct OtherCopy {
    explicit OtherCopy(BulkWorld& world)
        : faulty(world.files), zormod(Platform{world.clipboard, world.clock, world.beeper, faulty, world.codePage,
                                               world.dialogs, world.screen, world.commands, world.forms,
                                               world.eventLoop, world.printer}) {
        zormod.file = world.zormod.file;
        letGo(world);
    }
    /// As every opening of a table does it.
    void open() { openAsAtStart(zormod); }
    FaultyFiles faulty;
    ZORMOD zormod;
};

/// What the operation makes of the table when nothing goes wrong.
TablePair newPair(const Operation& operation) {
    BulkWorld world;
    EXPECT_EQ(operation(world.zormod), BulkEnd::done);
    return pairIn(world);
}

void expectOldOrNew(BulkWorld& world, const TablePair& before, const TablePair& after, const std::string& where) {
    OtherCopy next(world);
    next.open();
    const TablePair now = pairIn(world);
    EXPECT_TRUE(now == before || now == after) << where;
    EXPECT_EQ(world.entries(), tableAlone) << where;
    EXPECT_EQ(next.zormod.items.itemWidth[0], now.items.find("2000 ' 6\r\n") != std::string::npos ? 6 : 4) << where;
}

/// Runs the operation with the fault at the `n`th call, as the guard round the handlers does. False once no call is left.
bool failsAt(int n, const Operation& operation, Lasting lasting, const TablePair& after) {
    const std::string where = "call " + std::to_string(n);
    BulkWorld world;
    const TablePair before = pairIn(world);
    bool met = false;
    {
        OtherCopy copy(world);
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
            const TablePair now = pairIn(world);
            EXPECT_TRUE(now == before || now == after) << where << ", the running copy";
        }
    }
    expectOldOrNew(world, before, after, where);
    return met;
}

bool diesAt(int n, const Operation& operation, const TablePair& after) {
    BulkWorld world;
    const TablePair before = pairIn(world);
    letGo(world);
    ForkedChild child([&](const ChildSide&) {
        OtherCopy copy(world);
        copy.open();
        copy.faulty.failAt(n, Counted::calls, Lasting::once, Kind::kill);
        return operation(copy.zormod) == BulkEnd::done;
    });
    const bool killed = endsKilled(child);
    expectOldOrNew(world, before, after, "killed at call " + std::to_string(n));
    if (!killed) {
        EXPECT_EQ(pairIn(world), after);
    }
    return killed;
}

const std::vector<Operation> operations = {[](ZORMOD& zormod) { return dropEveryThird(zormod); }, widenFirstItem,
                                           widenInPlace};

} // namespace

TEST(BulkFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Operation& operation : operations) {
        const TablePair after = newPair(operation);
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
        const TablePair after = newPair(operation);
        int n = 1;
        while (diesAt(n, operation, after)) {
            ++n;
        }
        EXPECT_GT(n, 30);
    }
}

TEST(BulkFaults, AKillDuringTheRecoveryLeavesItToTheNextOpening) {
    const TablePair after = newPair(widenFirstItem);
    int deaths = 0;
    for (int first = 1; first < 200; ++first) {
        BulkWorld world;
        const TablePair before = pairIn(world);
        letGo(world);
        ForkedChild child([&](const ChildSide&) {
            OtherCopy copy(world);
            copy.open();
            copy.faulty.failAt(first, Counted::writes, Lasting::once, Kind::kill);
            return widenFirstItem(copy.zormod) == BulkEnd::done;
        });
        if (!endsKilled(child)) {
            break;
        }
        for (int second = 1; second < 200; ++second) {
            ForkedChild recovery([&](const ChildSide&) {
                OtherCopy copy(world);
                copy.faulty.failAt(second, Counted::calls, Lasting::once, Kind::kill);
                copy.open();
                return true;
            });
            if (!endsKilled(recovery)) {
                break;
            }
            ++deaths;
        }
        expectOldOrNew(world, before, after, "write " + std::to_string(first));
    }
    EXPECT_GT(deaths, 20);
}
