#include "platform/posix/posix_files.h"

#include "platform/failure.h"
#include "support/failing_system_call.h"
#include "support/file_size_limit.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <grp.h>
#include <limits>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

TEST(PosixFiles, TheCurrentFolderIsTheStartFolder) {
    RealFolder world;
    Text expected = u"C:";
    for (const char c : world.folder.path()) {
        expected += c == '/' ? u'\\' : static_cast<char16_t>(c);
    }
    EXPECT_EQ(world.files.currentFolder(), expected);
}

TEST(PosixFiles, FilesAndFoldersExistInEveryCase) {
    RealFolder world;
    world.make("Kt.txt", "");
    fs::create_directory(world.native("Folder"));
    fs::create_symlink("nowhere", world.native("dangling"));
    EXPECT_TRUE(world.files.exists(u"Kt.txt"));
    EXPECT_TRUE(world.files.exists(u"kt.txt"));
    EXPECT_TRUE(world.files.exists(u"FOLDER"));
    EXPECT_TRUE(world.files.exists(u"C:\\"));
    EXPECT_FALSE(world.files.exists(u"t.txt"));
    EXPECT_FALSE(world.files.exists(u"dangling"));
    EXPECT_FALSE(world.files.exists(u"kt.txt\\x"));
}

TEST(PosixFiles, AReplacedFileStaysWithTheGroupThatSharesIt) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give a file away to begin with";
    }
    constexpr gid_t group = 4242;
    constexpr uid_t member = 4243;
    RealFolder world;
    world.make("t", "old");
    ASSERT_EQ(chown(world.native("t").c_str(), 0, group), 0);
    fs::permissions(world.native("t"), fs::perms(0660));
    fs::permissions(world.folder.path(), fs::perms(0777));
    ForkedChild child([&](const ChildSide&) {
        if (setgroups(1, &group) != 0 || setgid(member) != 0 || setuid(member) != 0) {
            return false;
        }
        world.files.replaceWhole(u"t", "new");
        return true;
    });
    ASSERT_EQ(child.end(), 0);
    struct stat status {};
    ASSERT_EQ(stat(world.native("t").c_str(), &status), 0);
    EXPECT_EQ(status.st_gid, group);
    EXPECT_EQ(status.st_mode & 07777, 0660U);
    EXPECT_EQ(world.files.readWhole(u"t", 10), "new");
}

TEST(PosixFiles, ALinkThatCantBeReadIsNotReplacedByAFile) {
    RealFolder world;
    world.make("t", "old");
    fs::create_symlink("t", world.native("link"));
    ForkedChild child([&](const ChildSide&) {
        failSystemCall(SYS_readlink, EIO);
        try {
            world.files.replaceWhole(u"link", "new");
        } catch (const RuntimeFailure& failure) {
            return failure.kind == FailureKind::file;
        }
        return false;
    });
    EXPECT_EQ(child.end(), 0);
    EXPECT_TRUE(fs::is_symlink(world.native("link")));
    EXPECT_EQ(world.files.readWhole(u"t", 10), "old");
}

TEST(PosixFiles, OneFileIsKnownByEveryRoadThatLeadsToIt) {
    RealFolder world;
    world.make("Kt.txt", "");
    world.make("u.txt", "");
    fs::create_directory_symlink(".", world.native("road"));
    fs::create_symlink("Kt.txt", world.native("link"));
    fs::create_symlink("nowhere", world.native("dangling"));
    EXPECT_TRUE(world.files.isSameFile(u"kt.txt", world.files.currentFolder() + u"\\Kt.txt"));
    EXPECT_TRUE(world.files.isSameFile(u"Kt.txt", u"road\\KT.txt"));
    EXPECT_TRUE(world.files.isSameFile(u"link", u"Kt.txt"));
    EXPECT_FALSE(world.files.isSameFile(u"Kt.txt", u"u.txt"));
    EXPECT_FALSE(world.files.isSameFile(u"Kt.txt", u"gone"));
    EXPECT_FALSE(world.files.isSameFile(u"gone", u"gone"));
    EXPECT_FALSE(world.files.isSameFile(u"dangling", u"dangling"));
    EXPECT_FALSE(world.files.isSameFile(u"B:\\Kt.txt", u"B:\\Kt.txt")) << "there is no such drive";
}

TEST(PosixFiles, AnOpenFileKnowsWhetherItsNameStillMeansIt) {
    RealFolder world;
    world.make("t", "x");
    const auto random = world.files.openRandom(u"t");
    const auto bulk = world.files.openBulk(u"t");
    EXPECT_TRUE(random->isInPlace());
    EXPECT_TRUE(bulk->isInPlace());
    fs::rename(world.native("t"), world.native("moved"));
    EXPECT_FALSE(random->isInPlace());
    world.make("t", "x");
    EXPECT_FALSE(random->isInPlace()) << "another file of the same name";
    EXPECT_FALSE(bulk->isInPlace());
}

TEST(PosixFiles, WhatCantBeReplacedIsKnownBeforehand) {
    RealFolder world;
    world.make("t", "x");
    fs::create_directory(world.native("folder"));
    fs::create_directory(world.native("closed"));
    world.make("closed/t", "x");
    fs::create_symlink("closed/t", world.native("link"));
    fs::permissions(world.native("closed/t"), fs::perms(0666));
    world.make("mayBeRead", "x");
    fs::permissions(world.native("mayBeRead"), fs::perms(0444));
    fs::permissions(world.native("t"), fs::perms(0666));
    fs::permissions(world.folder.path(), fs::perms(0777));
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        const auto refuses = [&](const Text& path) {
            try {
                world.files.expectReplaceable(path);
            } catch (const RuntimeFailure& failure) {
                return failure.kind == FailureKind::file;
            }
            return false;
        };
        return !refuses(u"t") && !refuses(u"new") && refuses(u"folder") && refuses(u"mayBeRead") &&
               refuses(u"closed\\t") && refuses(u"link");
    }));
}

TEST(PosixFiles, ReadsAWholeFileUpToTheLimit) {
    RealFolder world;
    const std::string contents = std::string(200000, 'x') + std::string(1, '\0') + "end";
    world.make("t", contents);
    world.make("empty", "");
    EXPECT_EQ(world.files.readWhole(u"t", contents.size()), contents);
    EXPECT_EQ(world.files.readWhole(u"t", std::numeric_limits<std::size_t>::max()), contents);
    EXPECT_THROW(world.files.readWhole(u"t", contents.size() - 1), RuntimeFailure);
    EXPECT_EQ(world.files.readWhole(u"empty", 0), "");
    EXPECT_THROW(world.files.readWhole(u"gone", 100), RuntimeFailure);
}

TEST(PosixFiles, AFileWhoseLengthTheSystemDoesNotKnowIsReadToItsEnd) {
    RealFolder world;
    const Bytes cpus = world.files.readWhole(u"C:\\proc\\cpuinfo", 1 << 24);
    EXPECT_NE(cpus.find("processor"), Bytes::npos);
    EXPECT_THROW(world.files.readWhole(u"C:\\proc\\cpuinfo", 10), RuntimeFailure);
}

TEST(PosixFiles, ReplacesAndMakesWholeFiles) {
    RealFolder world;
    world.make("t", "old and long");
    world.files.replaceWhole(u"t", "new");
    world.files.replaceWhole(u"u", "");
    EXPECT_EQ(world.bytesOf("t"), "new");
    EXPECT_EQ(world.bytesOf("u"), "");
    EXPECT_EQ(world.entries(), 2);
}

TEST(PosixFiles, ReaderAndWriterThatSpellALetterDifferentlyMeet) {
    RealFolder world;
    world.files.replaceWhole(u"kmeibo.txt", "1");
    EXPECT_EQ(world.files.readWhole(u"Kmeibo.txt", 9), "1");
    world.files.replaceWhole(u"KMEIBO.TXT", "2");
    EXPECT_EQ(world.bytesOf("kmeibo.txt"), "2");
    EXPECT_EQ(world.entries(), 1);
}

TEST(PosixFiles, AReplacedFileKeepsItsPermissions) {
    RealFolder world;
    for (const unsigned mode : {0600u, 0664u, 0755u}) {
        world.make("t", "old");
        fs::permissions(world.native("t"), fs::perms(mode));
        world.files.replaceWhole(u"t", "new");
        EXPECT_EQ(fs::status(world.native("t")).permissions(), fs::perms(mode));
    }
}

TEST(PosixFiles, ReplacingThroughALinkKeepsTheLink) {
    RealFolder world;
    fs::create_directory(world.native("sub"));
    world.make("sub/t", "old");
    fs::create_symlink("sub/t", world.native("one"));
    fs::create_symlink(world.native("one"), world.native("two"));
    world.files.replaceWhole(u"two", "new");
    EXPECT_TRUE(fs::is_symlink(world.native("one")));
    EXPECT_TRUE(fs::is_symlink(world.native("two")));
    EXPECT_EQ(world.bytesOf("sub/t"), "new");
    EXPECT_FALSE(fs::is_symlink(world.native("sub/t")));
}

TEST(PosixFiles, AReplacementThatFailsLeavesTheOldFileAndNothingElse) {
    RealFolder world;
    world.make("t", "old");
    {
        const FileSizeLimit full(1000);
        EXPECT_THROW(world.files.replaceWhole(u"t", std::string(4000, 'n')), RuntimeFailure);
        EXPECT_THROW(world.files.replaceWhole(u"u", std::string(4000, 'n')), RuntimeFailure);
    }
    EXPECT_EQ(world.bytesOf("t"), "old");
    EXPECT_EQ(world.entries(), 1);
}

TEST(PosixFiles, AReplacementThatDoesNotReachTheDiskIsNotPutInPlace) {
    RealFolder world;
    world.make("t", "old");
    for (const int call : {SYS_fsync, SYS_fchmod, SYS_rename}) {
        ForkedChild child([&](const ChildSide&) {
            failSystemCall(call, EIO);
            try {
                world.files.replaceWhole(u"t", "new");
            } catch (const RuntimeFailure& failure) {
                return failure.kind == FailureKind::file;
            }
            return false;
        });
        EXPECT_EQ(child.end(), 0) << call;
        EXPECT_EQ(world.bytesOf("t"), "old") << call;
        EXPECT_EQ(world.entries(), 1) << call;
    }
}

TEST(PosixFiles, AKillWhileReplacingLeavesTheOldContentsAndAtMostAHiddenFile) {
    RealFolder world;
    world.make("t", "old");
    ForkedChild child([&](const ChildSide&) {
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        world.files.replaceWhole(u"t", std::string(4000, 'n'));
        return true;
    });
    const int status = child.end();
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
    EXPECT_EQ(world.bytesOf("t"), "old");
    EXPECT_EQ(world.entries(), 2);
    for (const auto& entry : fs::directory_iterator(world.folder.path())) {
        const std::string name = entry.path().filename().string();
        EXPECT_TRUE(name == "t" || name.starts_with(".romika-")) << name;
    }
    world.files.replaceWhole(u"t", "new");
    EXPECT_EQ(world.bytesOf("t"), "new");
}

TEST(PosixFiles, AWriteProtectedFileIsNotReplaced) {
    RealFolder world;
    world.openToEverybody();
    world.make("t", "old");
    fs::permissions(world.native("t"), fs::perms(0444));
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        try {
            world.files.replaceWhole(u"t", "new");
        } catch (const RuntimeFailure& failure) {
            return failure.kind == FailureKind::file;
        }
        return false;
    }));
    EXPECT_EQ(world.bytesOf("t"), "old");
    EXPECT_EQ(world.entries(), 1);
}

TEST(PosixFiles, CopiesToANewNameAndOverAnotherFile) {
    RealFolder world;
    const std::string contents(300000, 'c');
    world.make("from", contents);
    world.make("To", "old");
    world.files.copy(u"from", u"new");
    world.files.copy(u"FROM", u"TO");
    EXPECT_EQ(world.bytesOf("new"), contents);
    EXPECT_EQ(world.bytesOf("To"), contents);
    EXPECT_EQ(world.bytesOf("from"), contents);
    EXPECT_EQ(world.entries(), 3);
}

TEST(PosixFiles, AFileCopiedOntoItselfStaysWhole) {
    RealFolder world;
    world.make("t", "contents");
    world.files.copy(u"t", u"T");
    EXPECT_EQ(world.bytesOf("t"), "contents");
    EXPECT_EQ(world.entries(), 1);
}

TEST(PosixFiles, ACopyThatFailsLeavesTheOldFileAndNothingElse) {
    RealFolder world;
    world.make("from", std::string(4000, 'c'));
    world.make("to", "old");
    EXPECT_THROW(world.files.copy(u"gone", u"to"), RuntimeFailure);
    EXPECT_THROW(world.files.copy(u"from", u"gone\\to"), RuntimeFailure);
    {
        const FileSizeLimit full(1000);
        EXPECT_THROW(world.files.copy(u"from", u"to"), RuntimeFailure);
    }
    EXPECT_EQ(world.bytesOf("to"), "old");
    EXPECT_EQ(world.entries(), 2);
}

TEST(PosixFiles, NamesOutsideUtf8AndOutsideTheCodePageWorkThroughout) {
    RealFolder world;
    const Text broken{0xDC96, 0xDCBC};
    for (const Text& name : {broken, Text(u"🐱é한"), Text{u'a', 0xDC5C, u'b'}}) {
        world.files.replaceWhole(name, "x");
        EXPECT_TRUE(world.files.exists(name));
        EXPECT_EQ(world.files.openRandom(name)->length(), 1);
    }
    EXPECT_EQ(world.bytesOf("\x96\xBC"), "x");
    EXPECT_EQ(world.bytesOf("🐱é한"), "x");
    EXPECT_EQ(world.bytesOf("a\\b"), "x");
    EXPECT_EQ(world.entries(), 3);
}

TEST(PosixFiles, ALongFileIsGoneAtOnceAndFreedSoon) {
    RealFolder world;
    world.make("t", "");
    fs::resize_file(world.native("t"), 20 << 20);
    const auto openFiles = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    const auto before = openFiles();
    world.files.remove(u"t");
    EXPECT_FALSE(fs::exists(world.native("t")));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (openFiles() > before && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(PosixFiles, APathLongerThanTheSystemAllowsFails) {
    RealFolder world;
    for (const Text& path : {Text(4000, u'a'), Text(10000, u'a'), u"C:\\" + Text(100000, u'あ')}) {
        EXPECT_FALSE(world.files.exists(path));
        EXPECT_THROW(world.files.openRandom(path), RuntimeFailure);
        EXPECT_THROW(world.files.readWhole(path, 9), RuntimeFailure);
        EXPECT_THROW(world.files.replaceWhole(path, "x"), RuntimeFailure);
        EXPECT_THROW(world.files.copy(path, u"t"), RuntimeFailure);
    }
    EXPECT_EQ(world.entries(), 0);
}

TEST(PosixFiles, ADriveThatIsNotThereFails) {
    RealFolder world;
    EXPECT_FALSE(world.files.exists(u"E:\\t"));
    EXPECT_THROW(world.files.openRandom(u"E:\\t"), RuntimeFailure);
    EXPECT_THROW(world.files.readWhole(u"E:t", 9), RuntimeFailure);
    EXPECT_THROW(world.files.replaceWhole(u"E:\\t", "x"), RuntimeFailure);
}

TEST(PosixFiles, ALaterChangeOfTheProcessesFolderChangesNothing) {
    RealFolder world;
    const fs::path before = fs::current_path();
    fs::current_path("/");
    world.files.replaceWhole(u"zorTalk", "x");
    fs::current_path(before);
    EXPECT_EQ(world.bytesOf("zorTalk"), "x");
}
