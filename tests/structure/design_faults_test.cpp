// Accepting a design that fails, or dies, at its 1st, 2nd, 3rd ... file call, once and from then on. Whatever happens,
// the next opening has the old pair of data file and K file or the new one.

#include "structure/design_world.h"

#include "sheet/record_file.h"
#include "support/faulty_copy.h"

namespace {

using Lasting = FaultyFiles::Lasting;

struct FilledWorld : TestWorld {
    FilledWorld() {
        makeTable("t.txt", {{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}},
                  {{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}, {u"3", u"", u"101"}});
    }
};

/// A filled table and a running copy of the program whose files may fail.
struct FaultWorld : FilledWorld {
    explicit FaultWorld(Answer reply) : copy(*this), answer(reply), before(now()) {}
    /// 氏名 made narrower and right aligned, and accepted.
    DesignOutcome accept() {
        copy.zormod.taskWord = u"tdesign";
        TableDesign design(copy.zormod);
        design.rows[1] = {u"氏名", u"R", u"6"};
        dialogs.answers = {answer};
        return acceptDesign(design);
    }
    TablePair now() const { return pairIn(*this); }
    void expectOldOrNew(const TablePair& accepted, const std::string& where) {
        copy.startAgain();
        EXPECT_TRUE(now() == before || now() == accepted) << where;
    }

    FaultyCopy copy;
    Answer answer;
    TablePair before;
};

TablePair acceptedPair(Answer answer) {
    FaultWorld world(answer);
    EXPECT_EQ(world.accept(), DesignOutcome::closed);
    return world.now();
}

bool meetsFailure(int n, Answer answer, Lasting lasting, const TablePair& accepted) {
    const std::string where = "call " + std::to_string(n);
    FaultWorld world(answer);
    world.dialogs.expectedMessages = 4;
    const bool met = failsAt(world.copy, n, lasting, [&] { world.accept(); });
    EXPECT_EQ(world.copy.zormod.file.fileName, world.zormod.file.fileName) << where;
    if (hasTable(world.copy.zormod)) {
        // What the program goes on with fits together already.
        EXPECT_TRUE(world.now() == world.before || world.now() == accepted) << where << ", the running copy";
    }
    world.expectOldOrNew(accepted, where);
    return met;
}

bool meetsKill(int n, Answer answer, const TablePair& accepted) {
    FaultWorld world(answer);
    const bool died = diesAt(world.copy, n, [&] { world.accept(); });
    world.expectOldOrNew(accepted, "killed at call " + std::to_string(n));
    EXPECT_TRUE(died || world.now() == accepted);
    return died;
}

TEST(DesignFaults, AFailureAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        const TablePair accepted = acceptedPair(answer);
        EXPECT_GE(failuresMet([&](int n, Lasting lasting) { return meetsFailure(n, answer, lasting, accepted); }), 5);
    }
}

TEST(DesignFaults, AKillAtAnyFileCallLeavesTheOldPairOrTheNew) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
        const TablePair accepted = acceptedPair(answer);
        EXPECT_GE(faultsMet([&](int n) { return meetsKill(n, answer, accepted); }), 5);
    }
}

TEST(DesignFaults, BothFilesOfARewriteAreNewAfterIt) {
    const TablePair yes = acceptedPair(Answer::yes);
    const TablePair no = acceptedPair(Answer::no);
    EXPECT_EQ(yes.items, no.items);
    EXPECT_NE(yes.data, no.data);
}

} // namespace
