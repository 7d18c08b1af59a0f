// Inserting, deleting and moving items, copying, moving and clearing blocks that fail, or die, at their 1st, 2nd, 3rd ...
// file call, once and from then on. Whatever happens, the next opening has the old pair of data file and K file or the new
// one, and nothing else of theirs is in the folder.

#include "structure/block_operations.h"
#include "structure/item_operations.h"

#include "sheet/item_file.h"
#include "sheet/record_file.h"
#include "support/faulty_copy.h"
#include "support/folder_entries.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Lasting = FaultyFiles::Lasting;
using Operation = std::function<void(ZORMOD&)>;

/// A table of four items and six records.
struct FilledWorld : TestWorld {
    FilledWorld() {
        makeTable("t.txt", {{u"ID", u"L", 3}, {u"氏名", u"L", 6}, {u"年齢", u"R", 3}, {u"組", u"L", 4}},
                  {{u"1", u"山田", u"40", u"東"},
                   {u"2", u"鈴木", u"7", u"西"},
                   {u"3", u"", u"101", u""},
                   {u"4", u"佐藤", u"", u"北"},
                   {u"5", u"a", u"1", u"南"},
                   {u"6", u"b", u"2", u"z"}});
    }
};

/// The table and a running copy of the program whose files may fail.
struct FaultWorld : FilledWorld {
    FaultWorld() : copy(*this), before(now()) {}
    TablePair now() const { return pairIn(*this); }
    void expectOldOrNew(const TablePair& after, const std::string& where) {
        copy.startAgain();
        EXPECT_TRUE(now() == before || now() == after) << where;
        for (const std::string& name : entriesOf(folder.path())) {
            EXPECT_TRUE(name == "t.txt" || name == "kt.txt" || name.ends_with("ZORCLip")) << where << ": " << name;
        }
    }

    FaultyCopy copy;
    TablePair before;
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

TablePair newPair(const Operation& operation) {
    FaultWorld world;
    operation(world.copy.zormod);
    EXPECT_NE(world.now().data, world.before.data);
    return world.now();
}

bool meetsFailure(int n, const Operation& operation, Lasting lasting, const TablePair& after) {
    const std::string where = "call " + std::to_string(n);
    FaultWorld world;
    ZORMOD& zormod = world.copy.zormod;
    world.dialogs.expectedMessages = 4;
    const bool met = failsAt(world.copy, n, lasting, [&] { operation(zormod); });
    EXPECT_FALSE(world.dialogs.progressOpen) << where;
    if (hasTable(zormod)) {
        // What the program goes on with fits together already, in memory too.
        EXPECT_TRUE(world.now() == world.before || world.now() == after) << where << ", the running copy";
        EXPECT_EQ(itemFileBytes(zormod, zormod.items, zormod.items.itemCount), world.now().items) << where;
    }
    world.expectOldOrNew(after, where);
    return met;
}

bool meetsKill(int n, const Operation& operation, const TablePair& after) {
    FaultWorld world;
    const bool died = diesAt(world.copy, n, [&] { operation(world.copy.zormod); });
    world.expectOldOrNew(after, "killed at call " + std::to_string(n));
    EXPECT_TRUE(died || world.now() == after);
    return died;
}

} // namespace

TEST(ItemAndBlockFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Operation& operation : operations) {
        const TablePair after = newPair(operation);
        EXPECT_GE(failuresMet([&](int n, Lasting lasting) { return meetsFailure(n, operation, lasting, after); }), 15);
    }
}

TEST(ItemAndBlockFaults, AKillAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Operation& operation : operations) {
        const TablePair after = newPair(operation);
        EXPECT_GE(faultsMet([&](int n) { return meetsKill(n, operation, after); }), 15);
    }
}
