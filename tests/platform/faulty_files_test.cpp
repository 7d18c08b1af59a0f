#include "support/faulty_files.h"

#include "platform/failure.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>

namespace {

using Counted = FaultyFiles::Counted;
using Lasting = FaultyFiles::Lasting;
using Kind = FaultyFiles::Kind;

struct FaultyFolder : RealFolder {
    FaultyFolder() : faulty(files) { make("t", "0123456789"); }
    FaultyFiles faulty;
};

bool fails(const std::function<void()>& call) {
    try {
        call();
    } catch (const RuntimeFailure& failure) {
        return failure.kind == FailureKind::file;
    }
    return false;
}

} // namespace

TEST(FaultyFiles, WithoutAPlanEverythingGoesThrough) {
    FaultyFolder world;
    EXPECT_EQ(world.faulty.currentFolder(), world.files.currentFolder());
    EXPECT_EQ(world.faulty.fromCommandLine(u"/a"), u"C:\\a");
    EXPECT_TRUE(world.faulty.exists(u"t"));
    EXPECT_EQ(world.faulty.readWhole(u"t", 99), "0123456789");
    world.faulty.replaceWhole(u"u", "abc");
    world.faulty.copy(u"u", u"v");
    EXPECT_EQ(world.bytesOf("v"), "abc");
    const auto claim = world.faulty.lockTable(u"t");
    EXPECT_NE(claim, nullptr);
    EXPECT_EQ(PosixFiles(defaultDrives(), world.folder.path()).lockTable(u"t"), nullptr);
    const auto file = world.faulty.openRandom(u"t");
    char byte = 0;
    EXPECT_EQ(file->readAt(3, &byte, 1), 1u);
    EXPECT_EQ(byte, '3');
    file->writeDurably(10, "x");
    EXPECT_EQ(file->length(), 11);
    EXPECT_EQ(world.faulty.calls(), 9);
    EXPECT_EQ(world.faulty.writes(), 3);
    EXPECT_EQ(world.faulty.faults(), 0);
}

TEST(FaultyFiles, TheChosenCallFailsOnceAndDoesNothing) {
    FaultyFolder world;
    world.faulty.failAt(2, Counted::calls);
    EXPECT_TRUE(world.faulty.exists(u"t"));
    EXPECT_TRUE(fails([&] { world.faulty.replaceWhole(u"t", "new"); }));
    EXPECT_EQ(world.bytesOf("t"), "0123456789");
    world.faulty.replaceWhole(u"t", "new");
    EXPECT_EQ(world.bytesOf("t"), "new");
    EXPECT_EQ(world.faulty.faults(), 1);
}

TEST(FaultyFiles, EveryKindOfCallCanFail) {
    FaultyFolder world;
    const auto file = world.faulty.openRandom(u"t");
    char byte = 0;
    world.faulty.failAt(1, Counted::calls, Lasting::fromThenOn);
    EXPECT_TRUE(fails([&] { world.faulty.exists(u"t"); }));
    EXPECT_TRUE(fails([&] { world.faulty.openRandom(u"t"); }));
    EXPECT_TRUE(fails([&] { world.faulty.readWhole(u"t", 99); }));
    EXPECT_TRUE(fails([&] { world.faulty.replaceWhole(u"t", ""); }));
    EXPECT_TRUE(fails([&] { world.faulty.copy(u"t", u"u"); }));
    EXPECT_TRUE(fails([&] { world.faulty.lockTable(u"t"); }));
    EXPECT_TRUE(fails([&] { file->length(); }));
    EXPECT_TRUE(fails([&] { file->readAt(0, &byte, 1); }));
    EXPECT_TRUE(fails([&] { file->writeDurably(0, "x"); }));
    EXPECT_EQ(world.faulty.faults(), 9);
    world.faulty.heal();
    EXPECT_EQ(file->length(), 10);
    EXPECT_EQ(world.bytesOf("t"), "0123456789");
    EXPECT_EQ(world.entries(), 1);
}

TEST(FaultyFiles, OnlyWritesCountWhereOnlyWritesAreToFail) {
    FaultyFolder world;
    const auto file = world.faulty.openRandom(u"t");
    world.faulty.failAt(2, Counted::writes);
    file->writeDurably(0, "a");
    EXPECT_EQ(file->length(), 10);
    EXPECT_TRUE(world.faulty.exists(u"t"));
    EXPECT_TRUE(fails([&] { file->writeDurably(0, "b"); }));
    EXPECT_EQ(world.bytesOf("t"), "a123456789");
}

TEST(FaultyFiles, MakingAFileIsAWriteAndOpeningOneIsNot) {
    FaultyFolder world;
    world.faulty.failWrites();
    EXPECT_FALSE(fails([&] { world.faulty.openRandom(u"t"); }));
    EXPECT_TRUE(fails([&] { world.faulty.openRandom(u"new"); }));
    EXPECT_TRUE(fails([&] { world.faulty.openRandom(u"new"); }));
    EXPECT_EQ(world.entries(), 1);
}

TEST(FaultyFiles, AShortWriteLeavesHalfOfWhatItHadToOverwrite) {
    FaultyFolder world;
    const auto file = world.faulty.openRandom(u"t");
    world.faulty.failAt(1, Counted::writes, Lasting::fromThenOn, Kind::shortWrite);
    EXPECT_TRUE(fails([&] { file->writeDurably(2, "abcd"); }));
    EXPECT_EQ(world.bytesOf("t"), "01ab456789");
    EXPECT_TRUE(fails([&] { file->writeDurably(8, "efgh"); }));
    EXPECT_EQ(world.bytesOf("t"), "01ab4567e9");
    EXPECT_TRUE(fails([&] { file->writeDurably(20, "ijkl"); }));
    EXPECT_TRUE(fails([&] { world.faulty.replaceWhole(u"t", "new"); }));
    EXPECT_EQ(world.bytesOf("t"), "01ab4567e9");
}

TEST(FaultyFiles, AKillEndsTheProgramBeforeTheCall) {
    FaultyFolder world;
    ForkedChild child([&](const ChildSide&) {
        world.faulty.failAt(2, Counted::writes, Lasting::once, Kind::kill);
        world.faulty.replaceWhole(u"t", "first");
        world.faulty.replaceWhole(u"t", "second");
        return true;
    });
    const int status = child.end();
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
    EXPECT_EQ(world.bytesOf("t"), "first");
}

TEST(FaultyFiles, AnOpenFileKeepsThePlanWhenTheWrapperIsGone) {
    FaultyFolder world;
    std::unique_ptr<RandomFile> file;
    {
        FaultyFiles faulty(world.files);
        file = faulty.openRandom(u"t");
        faulty.failWrites();
    }
    EXPECT_TRUE(fails([&] { file->writeDurably(0, "x"); }));
    EXPECT_EQ(file->length(), 10);
}

TEST(FaultyFiles, TheCallsOfABulkRunAreCountedAndFail) {
    FaultyFolder world;
    {
        const auto file = world.faulty.openBulk(u"new");
        file->writeDurably(0, "abc");
        EXPECT_EQ(file->length(), 3);
        file->finish();
    }
    EXPECT_NE(world.faulty.lockFolder(u"C:"), nullptr);
    EXPECT_NE(world.faulty.moveIntoPlace(u"new", u"t"), nullptr);
    EXPECT_EQ(world.bytesOf("t"), "abc");
    EXPECT_EQ(world.faulty.calls(), 6);
    EXPECT_EQ(world.faulty.writes(), 4);
    const auto file = world.faulty.openBulk(u"t");
    world.faulty.failAt(1, Counted::calls, Lasting::fromThenOn);
    EXPECT_TRUE(fails([&] { world.faulty.openBulk(u"t"); }));
    EXPECT_TRUE(fails([&] { file->finish(); }));
    EXPECT_TRUE(fails([&] { file->writeDurably(0, "x"); }));
    EXPECT_TRUE(fails([&] { world.faulty.lockFolder(u"C:"); }));
    EXPECT_TRUE(fails([&] { world.faulty.moveIntoPlace(u"t", u"u"); }));
    EXPECT_EQ(world.bytesOf("t"), "abc");
}
