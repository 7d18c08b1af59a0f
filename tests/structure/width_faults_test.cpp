// Changes of width and alignment that fail, or die, at their 1st, 2nd, 3rd ... file call, once and from then on.
// Whatever happens, the next opening has the old pair of data file and K file or the new one.

#include "edit/status_update.h"
#include "sheet/record_file.h"
#include "structure/alignment_change.h"
#include "structure/width_change.h"
#include "support/faulty_copy.h"

#include <gtest/gtest.h>

namespace {

using Lasting = FaultyFiles::Lasting;

/// What is interrupted.
enum class Work { apply, asRead, alignment };
constexpr Work works[] = {Work::apply, Work::asRead, Work::alignment};

struct FilledWorld : TestWorld {
    FilledWorld() {
        makeTable("t.txt", {{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}},
                  {{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}, {u"3", u"", u"101"}});
    }
};

/// A filled table and a running copy of the program whose files may fail, ready for the work.
struct FaultWorld : FilledWorld {
    explicit FaultWorld(Work what) : copy(*this), edit(copy.zormod), change(edit), work(what) {
        connectPositionBoxes(edit);
        screen.onShowCurrentCell = [this] { showCurrentCell(edit); };
        copy.zormod.position.curItem = 1;
        showCurrentCell(edit);
        prepare();
        before = now();
    }
    /// What comes before the work, with files that hold.
    void prepare() {
        if (work != Work::alignment) {
            change.start();
            change.narrow();
        }
        if (work == Work::asRead) {
            change.apply();
            change.start();
        }
    }
    void run() {
        switch (work) {
        case Work::apply:
            return change.apply();
        case Work::asRead:
            return change.takeWidthsAsRead();
        case Work::alignment:
            edit.txtLR = u"R";
            return changeAlignment(edit);
        }
    }
    TablePair now() const { return pairIn(*this); }
    void expectOldOrNew(const TablePair& done, const std::string& where) {
        copy.startAgain();
        EXPECT_TRUE(now() == before || now() == done) << where;
    }

    FaultyCopy copy;
    EditScreen edit;
    WidthChange change;
    Work work;
    TablePair before;
};

TablePair donePair(Work work) {
    FaultWorld world(work);
    world.run();
    EXPECT_NE(world.now().data, world.before.data);
    EXPECT_NE(world.now().items, world.before.items);
    return world.now();
}

bool meetsFailure(int n, Work work, Lasting lasting, const TablePair& done) {
    const std::string where = "call " + std::to_string(n);
    FaultWorld world(work);
    world.dialogs.expectedMessages = 4;
    const bool met = failsAt(world.copy, n, lasting, [&] {
        try {
            world.run();
        } catch (const RuntimeFailure&) {
            EXPECT_FALSE(world.forms.isLoaded(u"frmFLN")) << where;
            throw;
        }
    });
    if (hasTable(world.copy.zormod)) {
        // What the program goes on with fits together already.
        const bool isOld = world.now() == world.before;
        EXPECT_TRUE(isOld || world.now() == done) << where << ", the running copy";
        const ItemTable& items = world.copy.zormod.items;
        EXPECT_EQ(items.itemWidth[1], (work == Work::apply && !isOld) || (work == Work::asRead && isOld) ? 9 : 10)
            << where;
        EXPECT_EQ(items.itemAlign[1] == u"R", work == Work::alignment && !isOld) << where;
    }
    world.expectOldOrNew(done, where);
    return met;
}

bool meetsKill(int n, Work work, const TablePair& done) {
    FaultWorld world(work);
    const bool died = diesAt(world.copy, n, [&] { world.run(); });
    world.expectOldOrNew(done, "killed at call " + std::to_string(n));
    EXPECT_TRUE(died || world.now() == done);
    return died;
}

TEST(WidthFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Work work : works) {
        const TablePair done = donePair(work);
        EXPECT_GE(failuresMet([&](int n, Lasting lasting) { return meetsFailure(n, work, lasting, done); }), 10);
    }
}

TEST(WidthFaults, AKillAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Work work : works) {
        const TablePair done = donePair(work);
        EXPECT_GE(faultsMet([&](int n) { return meetsKill(n, work, done); }), 10);
    }
}

} // namespace
