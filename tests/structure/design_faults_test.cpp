// Accepting a design that fails, or dies, at its 1st, 2nd, 3rd ... file call, once and from then on. Whatever happens,
// the next opening has the old pair of data file and K file or the new one.

#include "structure/design_world.h"

#include "sheet/failure_recovery.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "sheet/swap_record.h"
#include "support/faulty_files.h"
#include "support/forked_child.h"

#include <csignal>
#include <sys/wait.h>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;

struct Pair {
    std::string data;
    std::string items;
    bool operator==(const Pair&) const = default;
};

/// A filled table and a running copy of the program whose files may fail.
struct FaultWorld : TestWorld {
    explicit FaultWorld(Answer reply)
        : faulty(files), copy(Platform{clipboard, clock, beeper, faulty, codePage, dialogs, screen, commands, forms,
                                       eventLoop, printer}),
          answer(reply) {
        makeTable("t.txt", {{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}},
                  {{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}, {u"3", u"", u"101"}});
        copy.file = zormod.file;
        copy.file.fileDrive = zormod.file.programFolder.substr(0, 1);
        copy.file.fileName = zormod.file.programFolder.substr(2) + u"t.txt";
        open(copy, faulty);
    }
    static void open(ZORMOD& state, Files& through) {
        const FileIdentity& file = state.file;
        state.files.tableLock = through.lockTable(fullPath(file.fileDrive, file.fileName));
        recoverTable(state, file.fileName, file.fileDrive);
        ASSERT_EQ(readItemFile(state, file.fileName, file.fileDrive), Text());
        openDataFile(state);
        fillFirstWindow(state);
    }
    /// 氏名 made narrower and right aligned, and accepted.
    DesignOutcome accept() {
        copy.taskWord = u"tdesign";
        TableDesign design(copy);
        design.rows[1] = {u"氏名", u"R", u"6"};
        dialogs.answers = {answer};
        return acceptDesign(design);
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
    Answer answer;
};

Pair acceptedPair(Answer answer) {
    FaultWorld world(answer);
    EXPECT_EQ(world.accept(), DesignOutcome::closed);
    return world.now();
}

/// False once there is no `n`th call any more.
bool failsAt(int n, Answer answer, Lasting lasting, const Pair& accepted) {
    FaultWorld world(answer);
    const Pair before = world.now();
    world.dialogs.expectedMessages = 4;
    world.faulty.failAt(n, Counted::calls, lasting);
    try {
        world.accept();
    } catch (const RuntimeFailure& failure) {
        putStateRight(world.copy, failure);
    }
    const bool met = world.faulty.faults() > 0;
    world.faulty.heal();
    EXPECT_EQ(world.copy.file.fileName, world.zormod.file.programFolder.substr(2) + u"t.txt") << "call " << n;
    if (hasTable(world.copy)) {
        // What the program goes on with fits together already.
        const Pair now = world.now();
        EXPECT_TRUE(now == before || now == accepted) << "call " << n << ", the running copy";
    }
    const Pair next = world.afterOpening();
    EXPECT_TRUE(next == before || next == accepted) << "call " << n;
    return met;
}

bool diesAt(int n, Answer answer, const Pair& accepted) {
    FaultWorld world(answer);
    const Pair before = world.now();
    ForkedChild child([&](const ChildSide&) {
        world.faulty.failAt(n, Counted::calls, Lasting::once, Kind::kill);
        return world.accept() == DesignOutcome::closed;
    });
    const int status = child.end();
    const Pair next = world.afterOpening();
    EXPECT_TRUE(next == before || next == accepted) << "killed at call " << n;
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

TEST(DesignFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        const Pair accepted = acceptedPair(answer);
        for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn}) {
            int n = 1;
            while (failsAt(n, answer, lasting, accepted)) {
                ++n;
            }
            EXPECT_GT(n, 5);
        }
    }
}

TEST(DesignFaults, AKillAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        const Pair accepted = acceptedPair(answer);
        int n = 1;
        while (diesAt(n, answer, accepted)) {
            ++n;
        }
        EXPECT_GT(n, 5);
    }
}

TEST(DesignFaults, BothFilesOfARewriteAreNewAfterIt) {
    const Pair yes = acceptedPair(Answer::yes);
    const Pair no = acceptedPair(Answer::no);
    EXPECT_EQ(yes.items, no.items);
    EXPECT_NE(yes.data, no.data);
}

} // namespace
