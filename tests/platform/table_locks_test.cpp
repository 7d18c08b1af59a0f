#include "platform/posix/table_locks.h"

#include "platform/failure.h"
#include "support/failing_system_call.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/syscall.h>

namespace {

/// Another running copy that claims `path`, says so, and holds the claim until it is told to go on.
std::function<bool(const ChildSide&)> copyThatClaims(const RealFolder& world, const Text& path) {
    return [&world, path](const ChildSide& parent) {
        PosixFiles files({{u'C', "/"}}, world.folder.path());
        const auto claim = files.lockTable(path);
        if (!claim) {
            return false;
        }
        parent.giveSign();
        return parent.waitForSign();
    };
}

} // namespace

TEST(TableLocks, ATableThatAnotherCopyHoldsIsRefusedUntilItLetsGo) {
    RealFolder world;
    world.make("t", "x");
    ForkedChild other(copyThatClaims(world, u"t"));
    ASSERT_TRUE(other.waitForSign());
    EXPECT_EQ(world.files.lockTable(u"t"), nullptr);
    other.giveSign();
    EXPECT_EQ(other.end(), 0);
    EXPECT_NE(world.files.lockTable(u"t"), nullptr);
}

TEST(TableLocks, TheClaimOfAKilledCopyDoesNotCount) {
    RealFolder world;
    world.make("t", "x");
    ForkedChild other(copyThatClaims(world, u"t"));
    ASSERT_TRUE(other.waitForSign());
    EXPECT_EQ(world.files.lockTable(u"t"), nullptr);
    other.kill();
    EXPECT_NE(world.files.lockTable(u"t"), nullptr);
}

TEST(TableLocks, OtherTablesAreFree) {
    RealFolder world;
    world.make("t", "x");
    world.make("u", "x");
    ForkedChild other(copyThatClaims(world, u"t"));
    ASSERT_TRUE(other.waitForSign());
    EXPECT_NE(world.files.lockTable(u"u"), nullptr);
}

TEST(TableLocks, AClaimBelongsToTheFileAndNotToItsName) {
    RealFolder world;
    world.make("t", "x");
    std::filesystem::create_symlink("t", world.native("link"));
    std::filesystem::create_hard_link(world.native("t"), world.native("hard"));
    ForkedChild other(copyThatClaims(world, u"T"));
    ASSERT_TRUE(other.waitForSign());
    EXPECT_EQ(world.files.lockTable(u"link"), nullptr);
    EXPECT_EQ(world.files.lockTable(u"hard"), nullptr);
}

TEST(TableLocks, OneProgramSharesItsClaimAndTheLastShareLetsGo) {
    RealFolder world;
    world.make("t", "x");
    auto first = world.files.lockTable(u"t");
    auto second = world.files.lockTable(u"T");
    ASSERT_TRUE(first && second);
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    first.reset();
    EXPECT_EQ(other.lockTable(u"t"), nullptr);
    second.reset();
    EXPECT_NE(other.lockTable(u"t"), nullptr);
}

TEST(TableLocks, AClaimCanBeGivenUpAndTakenAgain) {
    RealFolder world;
    world.make("t", "x");
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    for (int i = 0; i < 3; ++i) {
        auto claim = world.files.lockTable(u"t");
        EXPECT_NE(claim, nullptr);
        EXPECT_EQ(other.lockTable(u"t"), nullptr);
        claim.reset();
        EXPECT_NE(other.lockTable(u"t"), nullptr);
    }
}

TEST(TableLocks, AClaimOutlastsClosingAndOpeningOfTheTable) {
    RealFolder world;
    world.make("t", "x");
    auto table = world.files.openRandom(u"t");
    const auto claim = world.files.lockTable(u"t");
    table.reset();
    table = world.files.openRandom(u"t");
    table->writeDurably(0, "y");
    table.reset();
    world.files.readWhole(u"t", 9);
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    EXPECT_EQ(other.lockTable(u"t"), nullptr);
}

TEST(TableLocks, AClaimOutlivesTheFileLayer) {
    RealFolder world;
    world.make("t", "x");
    auto files = std::make_unique<PosixFiles>(defaultDrives(), world.folder.path());
    auto claim = files->lockTable(u"t");
    files.reset();
    EXPECT_EQ(world.files.lockTable(u"t"), nullptr);
    claim.reset();
    EXPECT_NE(world.files.lockTable(u"t"), nullptr);
}

TEST(TableLocks, AFileThatTookTheNameOfAClaimedOneIsFree) {
    RealFolder world;
    world.make("t", "x");
    const auto claim = world.files.lockTable(u"t");
    world.files.replaceWhole(u"t", "new");
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    const auto otherClaim = other.lockTable(u"t");
    EXPECT_NE(otherClaim, nullptr);
    EXPECT_EQ(world.files.lockTable(u"t"), nullptr);
}

TEST(TableLocks, WhatCannotBeOpenedExcludesNobody) {
    RealFolder world;
    std::filesystem::create_directory(world.native("folder"));
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    for (const TextView name : {u"gone", u"gone\\t", u"folder", u"E:\\t", u":t"}) {
        const auto claim = world.files.lockTable(Text(name));
        const auto again = other.lockTable(Text(name));
        EXPECT_TRUE(claim && again) << utf8(name);
    }
    EXPECT_NE(world.files.lockTable(Text(4000, u'a')), nullptr);
    EXPECT_EQ(world.entries(), 1);
}

TEST(TableLocks, AWriteProtectedTableIsClaimedToo) {
    RealFolder world;
    world.openToEverybody();
    world.make("t", "x");
    std::filesystem::permissions(world.native("t"), std::filesystem::perms(0444));
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        PosixFiles other({{u'C', "/"}}, world.folder.path());
        const auto claim = world.files.lockTable(u"t");
        return claim && !other.lockTable(u"t");
    }));
}

TEST(TableLocks, AFileSystemWithoutLocksExcludesNobody) {
    RealFolder world;
    world.make("t", "x");
    for (const int error : {ENOLCK, EOPNOTSUPP, ENOSYS, EINVAL, EBADF, EACCES}) {
        ForkedChild child([&](const ChildSide&) {
            failSystemCall(SYS_flock, error);
            PosixFiles other({{u'C', "/"}}, world.folder.path());
            const auto claim = world.files.lockTable(u"t");
            return claim && other.lockTable(u"t");
        });
        EXPECT_EQ(child.end(), 0) << error;
    }
}

TEST(TableLocks, ADiskThatFailsIsNoFreeTable) {
    for (const int call : {SYS_flock, SYS_newfstatat}) {
        RealFolder world;
        world.make("t", "x");
        ForkedChild child([&](const ChildSide&) {
            failSystemCall(call, EIO);
            try {
                world.files.lockTable(u"t");
            } catch (const RuntimeFailure& failure) {
                return failure.kind == FailureKind::file;
            }
            return false;
        });
        EXPECT_EQ(child.end(), 0) << call;
    }
}
