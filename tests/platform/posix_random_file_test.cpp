#include "platform/failure.h"
#include "support/failing_system_call.h"
#include "support/file_size_limit.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace {

std::string read(RandomFile& file, std::int64_t offset, std::size_t count) {
    std::string bytes(count, '?');
    bytes.resize(file.readAt(offset, bytes.data(), count));
    return bytes;
}

} // namespace

TEST(PosixRandomFile, OpeningMakesAFileThatIsNotThere) {
    RealFolder world;
    const auto file = world.files.openRandom(u"New.txt");
    EXPECT_EQ(file->length(), 0);
    EXPECT_TRUE(std::filesystem::exists(world.native("New.txt")));
    file->writeDurably(0, "abc");
    EXPECT_EQ(world.bytesOf("New.txt"), "abc");
}

TEST(PosixRandomFile, ANewFileHasThePermissionsThatTheUserAskedFor) {
    RealFolder world;
    const mode_t before = umask(027);
    world.files.openRandom(u"a");
    world.files.replaceWhole(u"b", "x");
    umask(before);
    EXPECT_EQ(std::filesystem::status(world.native("a")).permissions(), std::filesystem::perms(0640));
    EXPECT_EQ(std::filesystem::status(world.native("b")).permissions(), std::filesystem::perms(0640));
}

TEST(PosixRandomFile, OpeningTouchesNothingOfAFileThatIsThere) {
    RealFolder world;
    world.make("T.txt", "0123456789");
    const auto file = world.files.openRandom(u"t.TXT");
    EXPECT_EQ(file->length(), 10);
    EXPECT_EQ(world.bytesOf("T.txt"), "0123456789");
    EXPECT_EQ(world.entries(), 1);
}

TEST(PosixRandomFile, ReadsByPositionAndFewerBytesOnlyAtTheEnd) {
    RealFolder world;
    world.make("t", "0123456789");
    const auto file = world.files.openRandom(u"t");
    EXPECT_EQ(read(*file, 0, 4), "0123");
    EXPECT_EQ(read(*file, 7, 4), "789");
    EXPECT_EQ(read(*file, 10, 4), "");
    EXPECT_EQ(read(*file, 1000, 4), "");
    EXPECT_EQ(read(*file, 3, 0), "");
    EXPECT_THROW(read(*file, -1, 4), RuntimeFailure);
}

TEST(PosixRandomFile, WritesByPositionAndGrows) {
    RealFolder world;
    world.make("t", "0123456789");
    const auto file = world.files.openRandom(u"t");
    file->writeDurably(2, "ab");
    EXPECT_EQ(world.bytesOf("t"), "01ab456789");
    file->writeDurably(8, "cdef");
    EXPECT_EQ(world.bytesOf("t"), "01ab4567cdef");
    EXPECT_EQ(file->length(), 12);
    EXPECT_THROW(file->writeDurably(-1, "x"), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t"), "01ab4567cdef");
}

TEST(PosixRandomFile, LengthIsAskedAfresh) {
    RealFolder world;
    world.make("t", "0123");
    const auto file = world.files.openRandom(u"t");
    std::filesystem::resize_file(world.native("t"), 77);
    EXPECT_EQ(file->length(), 77);
}

TEST(PosixRandomFile, WorksBeyondTwoGibibytes) {
    RealFolder world;
    constexpr std::int64_t end = std::int64_t{3} << 30;
    world.make("t", "");
    std::filesystem::resize_file(world.native("t"), static_cast<std::uintmax_t>(end));
    const auto file = world.files.openRandom(u"t");
    EXPECT_EQ(file->length(), end);
    file->writeDurably(end, "the end");
    EXPECT_EQ(file->length(), end + 7);
    EXPECT_EQ(read(*file, end - 1, 100), std::string(1, '\0') + "the end");
}

TEST(PosixRandomFile, AGrowingWriteThatFailsGivesTheOldLengthBack) {
    RealFolder world;
    world.make("t", std::string(1000, 'a'));
    const auto file = world.files.openRandom(u"t");
    {
        const FileSizeLimit full(1100);
        EXPECT_THROW(file->writeDurably(1000, std::string(256, 'b')), RuntimeFailure);
    }
    EXPECT_EQ(world.bytesOf("t"), std::string(1000, 'a'));
    file->writeDurably(1000, std::string(256, 'b'));
    EXPECT_EQ(world.bytesOf("t"), std::string(1000, 'a') + std::string(256, 'b'));
}

TEST(PosixRandomFile, AFullDiskDoesNotHinderWritingOverWhatIsThere) {
    RealFolder world;
    world.make("t", std::string(1000, 'a'));
    const auto file = world.files.openRandom(u"t");
    const FileSizeLimit full(1000);
    file->writeDurably(0, "b");
    EXPECT_EQ(read(*file, 0, 2), "ba");
}

TEST(PosixRandomFile, AWriteThatDoesNotReachTheDiskFailsAndDoesNotGrowTheFile) {
    RealFolder world;
    world.make("t", "0123");
    ForkedChild child([&](const ChildSide&) {
        const auto file = world.files.openRandom(u"t");
        failSystemCall(SYS_fdatasync, EIO);
        try {
            file->writeDurably(4, "456");
        } catch (const RuntimeFailure& failure) {
            return failure.kind == FailureKind::file;
        }
        return false;
    });
    EXPECT_EQ(child.end(), 0);
    EXPECT_EQ(world.bytesOf("t"), "0123");
}

TEST(PosixRandomFile, ANewFileWhoseNameDoesNotReachTheDiskFails) {
    RealFolder world;
    ForkedChild child([&](const ChildSide&) {
        failSystemCall(SYS_fsync, EIO);
        try {
            world.files.openRandom(u"new");
        } catch (const RuntimeFailure& failure) {
            return failure.kind == FailureKind::file;
        }
        return false;
    });
    EXPECT_EQ(child.end(), 0);
}

TEST(PosixRandomFile, AFileDeletedBehindItsBackIsNotWritten) {
    RealFolder world;
    world.make("t", "0123");
    const auto file = world.files.openRandom(u"t");
    std::filesystem::remove(world.native("t"));
    EXPECT_THROW(file->writeDurably(0, "x"), RuntimeFailure);
    EXPECT_FALSE(std::filesystem::exists(world.native("t")));
    EXPECT_EQ(read(*file, 0, 4), "0123");
}

TEST(PosixRandomFile, AFileReplacedBehindItsBackIsNotWritten) {
    RealFolder world;
    world.make("t", "0123");
    const auto file = world.files.openRandom(u"t");
    world.files.replaceWhole(u"t", "new!");
    EXPECT_THROW(file->writeDurably(0, "x"), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t"), "new!");
    EXPECT_EQ(read(*file, 0, 4), "0123");
}

TEST(PosixRandomFile, ALinkThatLeadsElsewhereMeanwhileIsNotWritten) {
    RealFolder world;
    world.make("a", "aaaa");
    world.make("b", "bbbb");
    std::filesystem::create_symlink("a", world.native("t"));
    const auto file = world.files.openRandom(u"t");
    file->writeDurably(0, "x");
    std::filesystem::remove(world.native("t"));
    std::filesystem::create_symlink("b", world.native("t"));
    EXPECT_THROW(file->writeDurably(0, "y"), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("a"), "xaaa");
    EXPECT_EQ(world.bytesOf("b"), "bbbb");
}

TEST(PosixRandomFile, ANewFileBehindALinkIsMade) {
    RealFolder world;
    std::filesystem::create_directory(world.native("sub"));
    std::filesystem::create_symlink("sub/t", world.native("link"));
    world.files.openRandom(u"link")->writeDurably(0, "x");
    EXPECT_EQ(world.bytesOf("sub/t"), "x");
    EXPECT_TRUE(std::filesystem::is_symlink(world.native("link")));
}

TEST(PosixRandomFile, WhatMayNotBeWrittenOpensForReading) {
    RealFolder world;
    world.openToEverybody();
    world.make("t", "0123");
    std::filesystem::permissions(world.native("t"), std::filesystem::perms(0444));
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        const auto file = world.files.openRandom(u"t");
        try {
            file->writeDurably(0, "x");
        } catch (const RuntimeFailure& failure) {
            return failure.kind == FailureKind::file && read(*file, 0, 9) == "0123";
        }
        return false;
    }));
    EXPECT_EQ(world.bytesOf("t"), "0123");
}

TEST(PosixRandomFile, WhatMayNotEvenBeReadFails) {
    RealFolder world;
    world.openToEverybody();
    world.make("t", "0123");
    std::filesystem::permissions(world.native("t"), std::filesystem::perms::none);
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        try {
            world.files.openRandom(u"t");
        } catch (const RuntimeFailure& failure) {
            return failure.kind == FailureKind::file;
        }
        return false;
    }));
}

TEST(PosixRandomFile, OnlyARegularFileOpens) {
    RealFolder world;
    std::filesystem::create_directory(world.native("folder"));
    ASSERT_EQ(mkfifo(world.native("pipe").c_str(), 0600), 0);
    std::filesystem::create_symlink("pipe", world.native("link"));
    std::filesystem::create_symlink("loop", world.native("loop"));
    for (const TextView name : {u"folder", u"pipe", u"link", u"loop", u"C:\\dev\\null", u"C:\\dev\\full"}) {
        EXPECT_THROW(world.files.openRandom(Text(name)), RuntimeFailure) << utf8(name);
        EXPECT_THROW(world.files.readWhole(Text(name), 100), RuntimeFailure) << utf8(name);
        EXPECT_THROW(world.files.replaceWhole(Text(name), "x"), RuntimeFailure) << utf8(name);
        EXPECT_THROW(world.files.copy(Text(name), u"copy"), RuntimeFailure) << utf8(name);
        EXPECT_NE(world.files.lockTable(Text(name)), nullptr) << utf8(name);
    }
    EXPECT_EQ(world.entries(), 4);
}

TEST(PosixRandomFile, OpeningInAFolderThatIsNotThereFails) {
    RealFolder world;
    EXPECT_THROW(world.files.openRandom(u"gone\\t"), RuntimeFailure);
    EXPECT_EQ(world.entries(), 0);
}

TEST(PosixRandomFile, AnOpenFileOutlivesTheFileLayer) {
    RealFolder world;
    auto files = std::make_unique<PosixFiles>(defaultDrives(), world.folder.path());
    const auto file = files->openRandom(u"t");
    files.reset();
    file->writeDurably(0, "x");
    EXPECT_EQ(world.bytesOf("t"), "x");
}
