#include "platform/failure.h"
#include "support/failing_system_call.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace fs = std::filesystem;

TEST(MoveIntoPlace, TheNewFileTakesTheNameAndTheOldNameIsGone) {
    RealFolder world;
    world.make("WORK.QQQ", "new");
    world.make("t", "old");
    world.files.moveIntoPlace(u"WORK.QQQ", u"t");
    EXPECT_EQ(world.bytesOf("t"), "new");
    EXPECT_EQ(world.entries(), 1);
    world.make("WORK.QQQ", "first");
    world.files.moveIntoPlace(u"WORK.QQQ", u"u");
    EXPECT_EQ(world.bytesOf("u"), "first");
    EXPECT_EQ(world.entries(), 2);
}

TEST(MoveIntoPlace, TheNewFileKeepsThePermissionsOfTheOldOne) {
    RealFolder world;
    world.make("WORK.QQQ", "new");
    world.make("t", "old");
    fs::permissions(world.native("t"), fs::perms(0640));
    world.files.moveIntoPlace(u"WORK.QQQ", u"t");
    EXPECT_EQ(fs::status(world.native("t")).permissions(), fs::perms(0640));
}

TEST(MoveIntoPlace, ALinkStaysALink) {
    RealFolder world;
    fs::create_directory(world.native("sub"));
    world.make("sub/t", "old");
    fs::create_symlink("sub/t", world.native("link"));
    world.make("WORK.QQQ", "new");
    world.files.moveIntoPlace(u"WORK.QQQ", u"link");
    EXPECT_TRUE(fs::is_symlink(world.native("link")));
    EXPECT_EQ(world.bytesOf("sub/t"), "new");
}

TEST(MoveIntoPlace, TheClaimGoesWithTheFile) {
    RealFolder world;
    world.make("t", "old");
    world.make("WORK.QQQ", "new");
    auto claim = world.files.lockTable(u"t");
    claim = world.files.moveIntoPlace(u"WORK.QQQ", u"t");
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    EXPECT_EQ(other.lockTable(u"t"), nullptr);
    claim.reset();
    EXPECT_NE(other.lockTable(u"t"), nullptr);
}

TEST(MoveIntoPlace, AWorkFileThatAnotherCopyHasOpenStaysWhereItIs) {
    RealFolder world;
    world.make("t", "old");
    world.make("WORK.QQQ", "new");
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    const auto theirs = other.lockTable(u"WORK.QQQ");
    EXPECT_THROW(world.files.moveIntoPlace(u"WORK.QQQ", u"t"), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t"), "old");
    EXPECT_EQ(world.bytesOf("WORK.QQQ"), "new");
}

TEST(MoveIntoPlace, AFailureBeforeTheRenameChangesNothing) {
    for (const int call : {SYS_fsync, SYS_rename}) {
        RealFolder world;
        world.make("t", "old");
        world.make("WORK.QQQ", "new");
        ForkedChild child([&](const ChildSide&) {
            failSystemCall(call, EIO);
            try {
                world.files.moveIntoPlace(u"WORK.QQQ", u"t");
            } catch (const RuntimeFailure&) {
                return true;
            }
            return false;
        });
        EXPECT_EQ(child.end(), 0);
        EXPECT_EQ(world.bytesOf("t"), "old");
        EXPECT_EQ(world.bytesOf("WORK.QQQ"), "new");
        EXPECT_EQ(world.entries(), 2);
    }
}

TEST(MoveIntoPlace, FromOneDiskToAnotherTheBytesAreCopied) {
    RealFolder world;
    struct stat here {};
    ASSERT_EQ(stat(world.folder.path().c_str(), &here), 0);
    fs::path other;
    for (const fs::path& place : {fs::path("/dev/shm"), fs::temp_directory_path()}) {
        struct stat there {};
        if (stat(place.c_str(), &there) == 0 && there.st_dev != here.st_dev) {
            other = place;
        }
    }
    if (other.empty()) {
        GTEST_SKIP() << "this machine has no second disk, not even in memory";
    }
    std::string pattern = (other / "romika-test-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    const std::string contents(300000, 'n');
    std::ofstream(pattern + "/WORK.QQQ", std::ios::binary) << contents;
    world.make("t", "old");
    world.make(".new-t", "left by a kill");
    fs::permissions(world.native("t"), fs::perms(0640));
    PosixFiles files({{u'C', "/"}, {u'D', pattern}}, world.folder.path());
    const auto claim = files.moveIntoPlace(u"D:\\WORK.QQQ", u"t");
    EXPECT_EQ(world.bytesOf("t"), contents);
    EXPECT_EQ(fs::status(world.native("t")).permissions(), fs::perms(0640));
    EXPECT_EQ(world.entries(), 1);
    EXPECT_TRUE(fs::is_empty(pattern));
    EXPECT_EQ(world.files.lockTable(u"t"), nullptr);
    fs::remove_all(pattern);
}

TEST(LockFolder, OneCopyAtATimeWorksInAFolderAndNothingIsLeftInIt) {
    RealFolder world;
    PosixFiles other({{u'C', "/"}}, world.folder.path());
    auto first = world.files.lockFolder(u"C:");
    auto second = world.files.lockFolder(u"C:");
    ASSERT_TRUE(first && second);
    EXPECT_EQ(other.lockFolder(u"C:"), nullptr);
    first.reset();
    EXPECT_EQ(other.lockFolder(u"C:"), nullptr);
    second.reset();
    EXPECT_NE(other.lockFolder(u"C:"), nullptr);
    EXPECT_EQ(world.entries(), 0);
}

TEST(LockFolder, AKilledCopyAndOtherFoldersDoNotCount) {
    RealFolder world;
    fs::create_directory(world.native("sub"));
    ForkedChild copy([&](const ChildSide& parent) {
        PosixFiles files({{u'C', "/"}}, world.folder.path());
        const auto claim = files.lockFolder(u"C:");
        parent.giveSign();
        return claim != nullptr && parent.waitForSign();
    });
    ASSERT_TRUE(copy.waitForSign());
    EXPECT_EQ(world.files.lockFolder(u"C:"), nullptr);
    PosixFiles below({{u'C', "/"}}, world.native("sub"));
    EXPECT_NE(below.lockFolder(u"C:"), nullptr);
    copy.kill();
    EXPECT_NE(world.files.lockFolder(u"C:"), nullptr);
}
