// Changes of width and alignment that fail, or die, at their 1st, 2nd, 3rd ... file call, once and from then on. Whatever
// happens, the next opening has the old pair of data file and K file or the new one.

#include "edit/status_update.h"
#include "sheet/failure_recovery.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "structure/alignment_change.h"
#include "structure/width_change.h"
#include "support/faulty_files.h"
#include "support/forked_child.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;

/// What is interrupted.
enum class Work { apply, asRead, alignment };
constexpr Work works[] = {Work::apply, Work::asRead, Work::alignment};

struct Pair {
    std::string data;
    std::string items;
    bool operator==(const Pair&) const = default;
};

/// A filled table and a running copy of the program whose files may fail.
struct FaultWorld : TestWorld {
    FaultWorld()
        : faulty(files), copy(Platform{clipboard, clock, beeper, faulty, codePage, dialogs, screen, commands, forms,
                                       eventLoop, printer}),
          edit(copy), change(edit) {
        makeTable("t.txt", {{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}},
                  {{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}, {u"3", u"", u"101"}});
        copy.file = zormod.file;
        copy.file.fileDrive = zormod.file.programFolder.substr(0, 1);
        copy.file.fileName = zormod.file.programFolder.substr(2) + u"t.txt";
        open(copy, faulty);
        connectPositionBoxes(edit);
        screen.onShowCurrentCell = [this] { showCurrentCell(edit); };
        copy.position.curItem = 1;
        showCurrentCell(edit);
    }
    static void open(ZORMOD& state, Files& through) {
        const FileIdentity& file = state.file;
        state.files.tableLock = through.lockTable(fullPath(file.fileDrive, file.fileName));
        recoverTable(state, file.fileName, file.fileDrive);
        ASSERT_EQ(readItemFile(state, file.fileName, file.fileDrive), Text());
        openDataFile(state);
        fillFirstWindow(state);
    }
    /// What comes before the work, with files that hold.
    void prepare(Work work) {
        if (work != Work::alignment) {
            change.start();
            change.narrow();
        }
        if (work == Work::asRead) {
            change.apply();
            change.start();
        }
    }
    void run(Work work) {
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
    Pair now() const { return {bytesOf("t.txt"), bytesOf("kt.txt")}; }
    /// The pair as the next start of the program finds it.
    Pair afterOpening() {
        copy.files.tableLock.reset();
        closeAllFiles(copy);
        zormod.file = copy.file;
        open(zormod, files);
        return now();
    }

    FaultyFiles faulty;
    ZORMOD copy;
    EditScreen edit;
    WidthChange change;
};

Pair donePair(Work work) {
    FaultWorld world;
    world.prepare(work);
    const Pair before = world.now();
    world.run(work);
    EXPECT_NE(world.now().data, before.data);
    EXPECT_NE(world.now().items, before.items);
    return world.now();
}

/// False once there is no `n`th call any more.
bool failsAt(int n, Work work, Lasting lasting, const Pair& done) {
    FaultWorld world;
    world.prepare(work);
    const Pair before = world.now();
    world.dialogs.expectedMessages = 4;
    world.faulty.failAt(n, Counted::calls, lasting);
    try {
        world.run(work);
    } catch (const RuntimeFailure& failure) {
        EXPECT_FALSE(world.forms.isLoaded(u"frmFLN")) << "call " << n;
        putStateRight(world.copy, failure);
    }
    const bool met = world.faulty.faults() > 0;
    world.faulty.heal();
    if (hasTable(world.copy)) {
        // What the program goes on with fits together already.
        const Pair now = world.now();
        EXPECT_TRUE(now == before || now == done) << "call " << n << ", the running copy";
        const bool isOld = now == before;
        const ItemTable& items = world.copy.items;
        EXPECT_EQ(items.itemWidth[1], (work == Work::apply && !isOld) || (work == Work::asRead && isOld) ? 9 : 10)
            << "call " << n;
        EXPECT_EQ(items.itemAlign[1] == u"R", work == Work::alignment && !isOld) << "call " << n;
    }
    const Pair next = world.afterOpening();
    EXPECT_TRUE(next == before || next == done) << "call " << n;
    return met;
}

bool diesAt(int n, Work work, const Pair& done) {
    FaultWorld world;
    world.prepare(work);
    const Pair before = world.now();
    ForkedChild child([&](const ChildSide&) {
        world.faulty.failAt(n, Counted::calls, Lasting::once, Kind::kill);
        world.run(work);
        return true;
    });
    const int status = child.end();
    const Pair next = world.afterOpening();
    EXPECT_TRUE(next == before || next == done) << "killed at call " << n;
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

TEST(WidthFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Work work : works) {
        const Pair done = donePair(work);
        for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn}) {
            int n = 1;
            while (failsAt(n, work, lasting, done)) {
                ++n;
            }
            EXPECT_GT(n, 10);
        }
    }
}

TEST(WidthFaults, AKillAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Work work : works) {
        const Pair done = donePair(work);
        int n = 1;
        while (diesAt(n, work, done)) {
            ++n;
        }
        EXPECT_GT(n, 10);
    }
}

} // namespace
