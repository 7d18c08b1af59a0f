// Operations on records and pastes that fail, or die, at their 1st, 2nd, 3rd ... file call, once and from then on. Whatever
// happens, the next opening has the old table or the new one, and clip file and backup are never half written.

#include "structure/clip_file.h"
#include "structure/clip_paste.h"
#include "structure/record_operations.h"
#include "structure/record_world.h"
#include "support/faulty_copy.h"
#include "support/forked_child.h"

#include <csignal>
#include <functional>
#include <sys/wait.h>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;

struct State {
    std::string table;
    std::string clip;
    std::string backup;
    bool operator==(const State&) const = default;
};

struct Operation {
    std::string name;
    std::function<void(ZORMOD&)> run;
};

const std::vector<Operation> operations = {
    {"insert", [](ZORMOD& zormod) { insertRecords(zormod, 2); }},
    {"delete", [](ZORMOD& zormod) { deleteRecords(zormod, 2, 3); }},
    {"move", [](ZORMOD& zormod) { moveRecords(zormod, 1, 2, 6); }},
    {"clip",
     [](ZORMOD& zormod) {
         zormod.selection = {.selectionKind = 1, .selRecordFrom = 2, .selRecordTo = 4, .selItemFrom = 0, .selItemTo = 1};
         makeClip(zormod);
     }},
    {"paste over", pasteOver},
    {"paste insert", pasteInsert},
    {"take back", [](ZORMOD& zormod) { undoPaste(zormod); }}};

/// A table of six records, a clip of three, a backup of two.
struct FilledWorld : RecordWorld {
    FilledWorld() {
        numbered(6);
        writeFile("ZORCLip", " 3 \r\n 1 \r\n 2 \r\n 3 \r\n 1 \r\n 0 \r\n\"a\"\r\n\"b\"\r\n\"c\"\r\n");
        writeFile("ZORCLip.bak", " 5 \r\n\"p\"\r\n\"q\"\r\n");
    }
};

/// The table and a running copy of the program, on record 5, whose files may fail.
struct FaultWorld : FilledWorld {
    FaultWorld() : copy(*this), before(now()) {
        copy.zormod.position.curRecord = 5;
        refillWindow(copy.zormod, 5);
        dialogs.answers = {Answer::ok};
        dialogs.expectedMessages = 4;
    }
    State now() const { return {bytesOf("t.txt"), clip(), backup()}; }

    FaultyCopy copy;
    State before;
};

State finished(const Operation& operation) {
    FaultWorld world;
    operation.run(world.copy.zormod);
    return world.now();
}

void expectWhole(const State& now, const State& before, const State& after, const std::string& where) {
    EXPECT_TRUE(now.table == before.table || now.table == after.table) << where;
    EXPECT_TRUE(now.clip == before.clip || now.clip == after.clip) << where;
    EXPECT_TRUE(now.backup == before.backup || now.backup == after.backup || now.backup.empty()) << where;
    if (before.table != after.table && before.backup != after.backup) {
        if (now.table == after.table) {
            EXPECT_NE(now.backup, before.backup) << where << ": an older backup would put wrong rows back";
        }
        if (now.table == before.table && where.starts_with("paste insert")) {
            EXPECT_NE(now.backup, after.backup) << where << ": the new backup would blank rows of the user";
        }
    }
    if (before.table != after.table && before.clip != after.clip && now.table == after.table) {
        EXPECT_EQ(now.clip, after.clip) << where << ": what was deleted can't be pasted back";
    }
}

bool meetsFailure(int n, const Operation& operation, Lasting lasting, const State& after) {
    const std::string where = operation.name + ", call " + std::to_string(n);
    FaultWorld world;
    ZORMOD& zormod = world.copy.zormod;
    const bool met = failsAt(world.copy, n, lasting, [&] { operation.run(zormod); });
    EXPECT_FALSE(world.dialogs.progressOpen) << where;
    EXPECT_EQ(zormod.files.byNumber[3], nullptr) << where;
    EXPECT_EQ(zormod.files.byNumber[4], nullptr) << where;
    if (hasTable(zormod)) {
        expectWhole(world.now(), world.before, after, where + ", the running copy");
    }
    world.copy.startAgain();
    expectWhole(world.now(), world.before, after, where);
    return met;
}

bool meetsKill(int n, const Operation& operation, const State& after) {
    FaultWorld world;
    const bool died = diesAt(world.copy, n, [&] { operation.run(world.copy.zormod); });
    world.copy.startAgain();
    expectWhole(world.now(), world.before, after, operation.name + ", killed at call " + std::to_string(n));
    EXPECT_TRUE(died || world.now() == after) << operation.name;
    return died;
}

} // namespace

TEST(RecordFaults, AFailureAtAnyFileCallLeavesWholeFiles) {
    for (const Operation& operation : operations) {
        const State after = finished(operation);
        EXPECT_GE(failuresMet([&](int n, Lasting lasting) { return meetsFailure(n, operation, lasting, after); }), 10)
            << operation.name;
    }
}

TEST(RecordFaults, AKillAtAnyFileCallLeavesWholeFiles) {
    for (const Operation& operation : operations) {
        const State after = finished(operation);
        EXPECT_GE(faultsMet([&](int n) { return meetsKill(n, operation, after); }), 10) << operation.name;
    }
}

TEST(RecordFaults, WhatAKillLeavesOfAClipIsGoneAfterTheNext) {
    FaultWorld world;
    {
        ForkedChild child([&](const ChildSide&) {
            // The third write is the last before the file gets its name.
            world.copy.files.failAt(3, Counted::writes, Lasting::once, Kind::kill);
            operations[3].run(world.copy.zormod);
            return true;
        });
        const int status = child.end();
        ASSERT_TRUE(WIFSIGNALED(status));
    }
    EXPECT_EQ(world.entries().count(".new-ZORCLip"), 1U);
    operations[3].run(world.copy.zormod);
    EXPECT_EQ(world.entries().count(".new-ZORCLip"), 0U);
    EXPECT_EQ(world.clip().find(" 3 \r\n 2 \r\n 3 \r\n 4 \r\n"), 0U);
}
