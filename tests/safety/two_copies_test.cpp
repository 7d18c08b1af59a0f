// Two copies of the program at once, each a process of its own: on one table, and on two tables in one folder.

#include "safety/system_calls.h"
#include "safety/writing_operations.h"
#include "sheet/bulk_rewrite.h"
#include "sheet/change_in_place.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/forked_child.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const std::vector<std::vector<std::u16string_view>> rows = {{u"1", u"a"}, {u"2", u"b"}, {u"3", u"c"}};

/// Tables t.txt and u.txt.
struct CopiesWorld : TestWorld {
    CopiesWorld() {
        forms.loaded.insert(u"Form1");
        for (const char* name : {"t.txt", "u.txt"}) {
            makeTable(name, {{u"ID", u"L", 4}, {u"氏名", u"L", 8}}, rows);
        }
        zormod.files.tableLock.reset();
    }
    std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    /// True if this copy can open the table; a refusal is told in the words for a table in use.
    bool opens(const std::string& name) {
        RunningCopy copy(*this);
        dialogs.expectedMessages = 1;
        dialogs.messages.clear();
        const bool opened = copy.open(name);
        if (!opened) {
            EXPECT_EQ(dialogs.messages.size(), 1U);
            EXPECT_EQ(utf8(dialogs.messages.back().text), "このﾌｧｲﾙは別のロミカで使用中です");
        }
        return opened;
    }
};

/// True if a program could claim the file now.
bool isUnclaimed(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool isFree = file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return isFree;
}

const std::vector<std::string> twoTables = {"kt.txt", "ku.txt", "t.txt", "u.txt"};

/// Copies the table, last record first, and runs `middle` when it is half done.
BulkEnd turnRound(ZORMOD& zormod, const std::function<void()>& middle) {
    return bulkRewrite(zormod, {.name = u"記録移動中"}, [&](BulkRun& run) {
        for (std::int32_t record = run.records(); record >= 1; --record) {
            if (record == 2) {
                middle();
            }
            run.copy(record, record);
        }
    });
}

/// A copy in the middle of a rewrite of t.txt: it gives a sign there and goes on at ours.
ForkedChild rewriter(CopiesWorld& world) {
    return ForkedChild([&world](const ChildSide& side) {
        RunningCopy copy(world);
        return copy.open("t.txt") && turnRound(copy.zormod, [&] {
                   side.giveSign();
                   side.waitForSign();
               }) == BulkEnd::done;
    });
}

} // namespace

TEST(TwoCopies, OneTableIsOpenInOneOfThem) {
    CopiesWorld world;
    ForkedChild other([&](const ChildSide& side) {
        RunningCopy copy(world);
        const bool opened = copy.open("t.txt");
        side.giveSign();
        return opened && side.waitForSign();
    });
    ASSERT_TRUE(other.waitForSign());
    EXPECT_FALSE(world.opens("t.txt"));
    EXPECT_TRUE(world.opens("u.txt"));
    other.giveSign();
    EXPECT_EQ(other.end(), 0);
    EXPECT_TRUE(world.opens("t.txt"));
}

TEST(TwoCopies, TheClaimOutlivesCloseReopenAndRewrite) {
    CopiesWorld world;
    ForkedChild other([&](const ChildSide& side) {
        RunningCopy copy(world);
        bool all = copy.open("t.txt");
        closeFile(copy.zormod, 1);
        side.giveSign();
        side.waitForSign();
        openDataFile(copy.zormod);
        side.giveSign();
        side.waitForSign();
        all = all && turnRound(copy.zormod, [] {}) == BulkEnd::done; // another file has the table's name now
        side.giveSign();
        side.waitForSign();
        return all;
    });
    for (int sign = 1; sign <= 3; ++sign) {
        ASSERT_TRUE(other.waitForSign());
        EXPECT_FALSE(world.opens("t.txt")) << sign;
        other.giveSign();
    }
    EXPECT_EQ(other.end(), 0);
    EXPECT_TRUE(world.opens("t.txt"));
}

TEST(TwoCopies, TheClaimIsHeldAtEveryStepOfEveryOperation) {
    int operations = 0;
    for (const WritingOperation& operation : writingOperations()) {
        SafetyWorld world(operation);
        RunningCopy copy(world);
        if (!operation.opensTable || !copy.open(operation.dataFile())) {
            continue;
        }
        const Text name = copy.zormod.file.fileName;
        const std::string path = world.folder.path() + "/" + operation.dataFile();
        int steps = 0;
        int unclaimed = 0;
        {
            CallWatch watch(world.folder.path());
            watch.lookAheadOfEachCall([&] {
                ++steps;
                unclaimed += isUnclaimed(path) ? 1 : 0;
            });
            operation.run(world, copy.zormod);
        }
        if (copy.zormod.file.fileName == name && hasTable(copy.zormod)) { // and not another table, or none
            ++operations;
            EXPECT_GT(steps, 2) << operation.name;
            EXPECT_EQ(unclaimed, 0) << operation.name;
            EXPECT_FALSE(isUnclaimed(path)) << operation.name;
            copy.zormod.files.tableLock.reset();
            EXPECT_TRUE(isUnclaimed(path)) << operation.name << ": the test sees no claim at all";
        }
    }
    EXPECT_GT(operations, 25);
}

TEST(TwoCopies, OneThatIsKilledAmidRecordsInPlaceLeavesThemToTheNextThatOpensTheTable) {
    CopiesWorld world;
    const std::string old = world.bytesOf("t.txt");
    ForkedChild other([&](const ChildSide& side) {
        RunningCopy copy(world);
        if (!copy.open("t.txt")) {
            return false;
        }
        changeInPlace(copy.zormod, {.name = u"上書き張り付け作業中", .spans = {{1, 3}}}, [&](RecordChanges& run) {
            run.write(1, "new");
            side.giveSign();
            side.waitForSign();
        });
        return true;
    });
    ASSERT_TRUE(other.waitForSign());
    EXPECT_FALSE(world.opens("t.txt"));
    world.dialogs.messages.clear();
    other.kill();
    EXPECT_TRUE(world.opens("t.txt"));
    EXPECT_EQ(world.bytesOf("t.txt"), old);
    EXPECT_EQ(world.entries(), twoTables);
}

TEST(TwoCopies, ATableThatTheOtherReplacesJustNowIsClaimedAsTheFileThatItIsByThen) {
    // Ahead of the look at the name, of opening, of locking, and of the second look.
    for (int call = 1; call <= 4; ++call) {
        CopiesWorld world;
        const std::string path = world.folder.path() + "/t.txt";
        CallWatch watch(world.folder.path());
        int calls = 0;
        watch.lookAheadOfEachCall([&] {
            if (++calls == call) {
                std::filesystem::rename(world.folder.path() + "/u.txt", path);
            }
        });
        const auto claim = world.files.lockTable(world.zormod.file.programFolder + u"t.txt");
        EXPECT_NE(claim, nullptr) << call;
        EXPECT_FALSE(std::filesystem::exists(world.folder.path() + "/u.txt")) << call;
        EXPECT_FALSE(isUnclaimed(path)) << call;
    }
}

TEST(TwoCopies, ADataFileThatTheOtherHasClaimedJustNowIsNotOpened) {
    CopiesWorld world;
    RunningCopy one(world);
    RunningCopy other(world);
    ASSERT_TRUE(other.open("t.txt"));
    one.zormod.file = other.zormod.file;
    EXPECT_THROW(openDataFile(one.zormod), RuntimeFailure);
    EXPECT_FALSE(hasTable(one.zormod));
    other.zormod.files.tableLock.reset();
    EXPECT_NO_THROW(openDataFile(one.zormod));
}

TEST(TwoCopies, OneWorkFolderServesOneRewriteAtATime) {
    CopiesWorld world;
    const std::string u = world.bytesOf("u.txt");
    ForkedChild other = rewriter(world);
    ASSERT_TRUE(other.waitForSign());
    {
        RunningCopy copy(world);
        ASSERT_TRUE(copy.open("u.txt")); // and its recovery leaves the other copy's work files alone
        world.dialogs.expectedMessages = 1;
        world.dialogs.messages.clear();
        EXPECT_EQ(turnRound(copy.zormod, [] {}), BulkEnd::refused);
        ASSERT_EQ(world.dialogs.messages.size(), 1U);
        EXPECT_EQ(utf8(world.dialogs.messages[0].text), "別のロミカが作業中です。しばらくしてからやり直してください");
        EXPECT_EQ(world.bytesOf("u.txt"), u);
        EXPECT_TRUE(hasTable(copy.zormod));
        other.giveSign();
        EXPECT_EQ(other.end(), 0);
        EXPECT_EQ(world.bytesOf("t.txt").substr(0, 4), "3   ");
        EXPECT_EQ(turnRound(copy.zormod, [] {}), BulkEnd::done);
    }
    EXPECT_EQ(world.bytesOf("u.txt").substr(0, 4), "3   ");
    EXPECT_EQ(world.entries(), twoTables);
}

TEST(TwoCopies, OneThatIsKilledInTheMiddleOfARewriteLeavesTheOldTableAndNoClaim) {
    CopiesWorld world;
    const std::string t = world.bytesOf("t.txt");
    ForkedChild other = rewriter(world);
    ASSERT_TRUE(other.waitForSign());
    EXPECT_NE(world.entries(), twoTables);
    other.kill();
    RunningCopy copy(world);
    ASSERT_TRUE(copy.open("u.txt"));
    EXPECT_EQ(turnRound(copy.zormod, [] {}), BulkEnd::done);
    EXPECT_TRUE(world.opens("t.txt"));
    EXPECT_EQ(world.bytesOf("t.txt"), t);
    EXPECT_EQ(world.entries(), twoTables);
}

TEST(TwoCopies, TheSettingsAreThoseOfTheLastToEnd) {
    CopiesWorld world;
    // Both write the same small file at once, again and again: it is always one of the two, never a mixture.
    const auto writer = [&](char letter) {
        return [&world, letter](const ChildSide&) {
            RunningCopy copy(world);
            for (int i = 0; i < 200; ++i) {
                copy.files.replaceWhole(copy.zormod.file.programFolder + u"zorTalk", std::string(5000, letter));
            }
            return true;
        };
    };
    ForkedChild a(writer('a'));
    ForkedChild b(writer('b'));
    for (int i = 0; i < 50; ++i) {
        RunningCopy copy(world);
        EXPECT_TRUE(copy.open("t.txt")); // whose recovery sweeps the folder they write in
        const std::string now = world.bytesOf("zorTalk");
        EXPECT_TRUE(now.empty() || now == std::string(5000, 'a') || now == std::string(5000, 'b'));
    }
    EXPECT_EQ(a.end(), 0);
    EXPECT_EQ(b.end(), 0);
    EXPECT_EQ(world.entries().size(), twoTables.size() + 1);
}
