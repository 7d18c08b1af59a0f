// A change in place that fails, or dies, at its 1st, 2nd, 3rd ... file call, once and from then on, or with half of a write
// done. Whatever happens, the next opening has the old records or the new ones, and nothing else is in the folder.

#include "sheet/change_world.h"
#include "sheet/failure_recovery.h"
#include "support/faulty_copy.h"
#include "support/forked_child.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;

/// A table and a change of it.
struct Change {
    std::int32_t records;
    std::string tail;
    std::function<BulkEnd(ZORMOD&)> run;
};

/// A copy of each record of the first span over one of the second, or from the last to the first.
BulkEnd copySpan(ZORMOD& zormod, std::int32_t from, std::int32_t to, std::int32_t count) {
    return changeInPlace(zormod, {.spans = {{from, from + count - 1}, {to, to + count - 1}}}, [&](RecordChanges& run) {
        Bytes row;
        for (std::int32_t i = count - 1; i >= 0; --i) {
            run.read(from + i, row);
            run.write(to + i, row);
        }
    });
}

const std::vector<Change> changes = {
    {20, "", [](ZORMOD& zormod) { return renew(zormod, {3, 9}, u"消去中"); }},
    {20, "tail", [](ZORMOD& zormod) { return renew(zormod, {18, 25}); }},
    {900, "", [](ZORMOD& zormod) { return copySpan(zormod, 10, 30, 600); }},
    {1800, "", [](ZORMOD& zormod) { return copySpan(zormod, 10, 900, 600); }},
};

std::string changed(const Change& change) {
    ChangeWorld world(change.records, change.tail);
    EXPECT_EQ(change.run(world.zormod), BulkEnd::done);
    EXPECT_NE(world.now(), world.before);
    return world.now();
}

void expectOldOrNew(ChangeWorld& world, const std::string& after, const std::string& where) {
    closeAllFiles(world.copy);
    world.copy.files.tableLock.reset();
    openAsAtStart(world.zormod);
    EXPECT_TRUE(world.now() == world.before || world.now() == after) << where;
    EXPECT_EQ(world.entries(), tableAlone) << where;
}

bool failsAt(int n, const Change& change, Lasting lasting, Kind kind, const std::string& after) {
    const std::string where = "call " + std::to_string(n);
    ChangeWorld world(change.records, change.tail);
    openAsAtStart(world.copy);
    world.dialogs.expectedMessages = 3;
    world.faulty.failAt(n, Counted::calls, lasting, kind);
    try {
        change.run(world.copy);
    } catch (const RuntimeFailure& failure) {
        putStateRight(world.copy, failure);
    }
    const bool met = world.faulty.faults() > 0;
    EXPECT_FALSE(world.dialogs.progressOpen) << where;
    if (hasTable(world.copy)) {
        // What the program goes on with is whole already.
        EXPECT_TRUE(world.now() == world.before || world.now() == after) << where << ", the running copy";
    }
    world.faulty.heal();
    expectOldOrNew(world, after, where);
    return met;
}

bool diesAt(int n, const Change& change, const std::string& after) {
    ChangeWorld world(change.records, change.tail);
    ForkedChild child([&](const ChildSide&) {
        openAsAtStart(world.copy);
        world.faulty.failAt(n, Counted::calls, Lasting::once, Kind::kill);
        return change.run(world.copy) == BulkEnd::done;
    });
    const bool killed = endsKilled(child);
    expectOldOrNew(world, after, "killed at call " + std::to_string(n));
    if (!killed) {
        EXPECT_EQ(world.now(), after);
    }
    return killed;
}

} // namespace

TEST(ChangeFaults, AFailureAtAnyFileCallLeavesTheOldRecordsOrTheNew) {
    for (const Change& change : changes) {
        const std::string after = changed(change);
        for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn}) {
            for (const Kind kind : {Kind::plain, Kind::shortWrite}) {
                int n = 1;
                while (failsAt(n, change, lasting, kind, after)) {
                    ++n;
                }
                EXPECT_GT(n, 15);
            }
        }
    }
}

TEST(ChangeFaults, AKillAtAnyFileCallLeavesTheOldRecordsOrTheNew) {
    for (const Change& change : changes) {
        const std::string after = changed(change);
        int n = 1;
        while (diesAt(n, change, after)) {
            ++n;
        }
        EXPECT_GT(n, 15);
    }
}

TEST(ChangeFaults, AKillDuringTheRecoveryLeavesItToTheNextOpening) {
    const Change& change = changes[3];
    const std::string after = changed(change);
    int deaths = 0;
    for (int first = 1; first < 200; ++first) {
        ChangeWorld world(change.records, change.tail);
        ForkedChild child([&](const ChildSide&) {
            openAsAtStart(world.copy);
            world.faulty.failAt(first, Counted::writes, Lasting::once, Kind::kill);
            return change.run(world.copy) == BulkEnd::done;
        });
        if (!endsKilled(child)) {
            break;
        }
        for (int second = 1; second < 200; ++second) {
            ForkedChild recovery([&](const ChildSide&) {
                world.faulty.failAt(second, Counted::calls, Lasting::once, Kind::kill);
                openAsAtStart(world.copy);
                return true;
            });
            if (!endsKilled(recovery)) {
                break;
            }
            ++deaths;
        }
        expectOldOrNew(world, after, "write " + std::to_string(first));
    }
    EXPECT_GT(deaths, 20);
}
