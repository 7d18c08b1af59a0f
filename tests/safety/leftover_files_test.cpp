// What a killed program leaves of a file that it was writing goes away; what a running program writes stays.

#include "platform/posix/hidden_files.h"
#include "platform/posix/replacement_file.h"
#include "safety/system_calls.h"
#include "sheet/swap_record.h"
#include "support/folder_entries.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A child that is in the middle of replacing `path`, and puts its file in place at the sign.
ForkedChild writerOf(const std::string& path) {
    return ForkedChild([path](const ChildSide& side) {
        ReplacementFile replacement(path);
        writeFully(replacement.file(), 0, "new");
        side.giveSign();
        if (!side.waitForSign()) {
            return false;
        }
        replacement.putInPlace();
        return true;
    });
}

/// The native path of the one file whose name begins with a point.
std::string hiddenIn(const RealFolder& world) {
    std::string path;
    for (const std::string& name : entriesOf(world.folder.path())) {
        if (name.starts_with('.')) {
            path = world.native(name);
        }
    }
    return path;
}

} // namespace

TEST(LeftoverFiles, OfAKilledWriterGoAway) {
    RealFolder world;
    world.make("a.txt", "old");
    ForkedChild writer = writerOf(world.native("a.txt"));
    ASSERT_TRUE(writer.waitForSign());
    writer.kill();
    ASSERT_EQ(world.entries(), 2);
    removeLeftovers(world.folder.path());
    EXPECT_EQ(world.entries(), 1);
    EXPECT_EQ(world.bytesOf("a.txt"), "old");
}

TEST(LeftoverFiles, OfARunningWriterStay) {
    RealFolder world;
    world.make("a.txt", "old");
    ForkedChild writer = writerOf(world.native("a.txt"));
    ASSERT_TRUE(writer.waitForSign());
    removeLeftovers(world.folder.path());
    EXPECT_EQ(world.entries(), 2);
    writer.giveSign();
    EXPECT_EQ(writer.end(), 0);
    EXPECT_EQ(world.bytesOf("a.txt"), "new");
    EXPECT_EQ(world.entries(), 1);
}

TEST(LeftoverFiles, AFileThatIsTakenForOneAheadOfItsLockIsMadeAnew) {
    RealFolder world;
    world.make("a.txt", "old");
    CallWatch watch(world.folder.path());
    bool isSwept = false;
    watch.lookAheadOfEachCall([&] {
        if (!isSwept && world.entries() == 2) {
            isSwept = true;
            removeLeftovers(world.folder.path());
        }
    });
    world.files.replaceWhole(u"a.txt", "new");
    EXPECT_TRUE(isSwept);
    EXPECT_EQ(world.bytesOf("a.txt"), "new");
    EXPECT_EQ(world.entries(), 1);
}

TEST(LeftoverFiles, AFileThatSomebodyIsAboutToSweepIsLeftToHim) {
    RealFolder world;
    world.make("a.txt", "old");
    CallWatch watch(world.folder.path());
    std::string path;
    Descriptor sweeper;
    watch.lookAheadOfEachCall([&] {
        if (path.empty() && world.entries() == 2) {
            path = hiddenIn(world);
            sweeper = openNative(path, O_RDWR);
            EXPECT_EQ(flock(sweeper.number(), LOCK_EX | LOCK_NB), 0);
        } else if (sweeper.isOpen() && watch.steps().size() > 1) {
            EXPECT_EQ(unlink(path.c_str()), 0);
            sweeper = Descriptor();
        }
    });
    world.files.replaceWhole(u"a.txt", "new");
    EXPECT_FALSE(path.empty());
    EXPECT_EQ(world.bytesOf("a.txt"), "new");
    EXPECT_EQ(world.entries(), 1);
}

TEST(LeftoverFiles, AreKnownByTheirWholeName) {
    RealFolder world;
    for (const char* name : {".romika-work", ".romika-0123456789abcdef0123456", ".romika-0123456789abcdef012345678",
                             ".romika-0123456789abcdef0123456X", "romika-0123456789abcdef01234567", ".new-t.txt"}) {
        world.make(name, "somebody's");
    }
    const auto before = world.entries();
    removeLeftovers(world.folder.path());
    EXPECT_EQ(world.entries(), before);
    world.make(".romika-0123456789abcdef01234567", "half");
    removeLeftovers(world.folder.path());
    EXPECT_EQ(world.entries(), before);
}

TEST(LeftoverFiles, AFolderOrALinkOfThatNameIsNotTouched) {
    RealFolder world;
    const std::string name = ".romika-0123456789abcdef01234567";
    world.make("theirs.txt", "kept");
    std::filesystem::create_symlink(world.native("theirs.txt"), world.native(name));
    removeLeftovers(world.folder.path());
    EXPECT_EQ(world.bytesOf("theirs.txt"), "kept");
    EXPECT_TRUE(std::filesystem::is_symlink(world.native(name)));
    std::filesystem::remove(world.native(name));
    std::filesystem::create_directory(world.native(name));
    removeLeftovers(world.folder.path());
    EXPECT_TRUE(std::filesystem::is_directory(world.native(name)));
}

TEST(LeftoverFiles, GoAwayAtTheNextOpeningOfATableInTheTablesFolderAndInTheProgramsFolder) {
    TestWorld world;
    const std::string name = ".romika-0123456789abcdef01234567";
    std::filesystem::create_directory(world.folder.path() + "/sub");
    world.writeFile(name, "half");
    world.writeFile("sub/" + name, "half");
    world.writeFile(".new-ZORCLip", "half");
    world.writeFile(".new-ZORCLip.bak", "half");
    const Text path = world.zormod.file.programFolder + u"sub\\t.txt";
    recoverTable(world.zormod, path.substr(2), path.substr(0, 1));
    EXPECT_TRUE(std::filesystem::is_empty(world.folder.path() + "/sub"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(world.folder.path()), {}), 1);
}
