// The file layer makes things durable in the order that its contracts need: contents before the name that shows them,
// names before the call returns. Seen at the system calls themselves.

#include "safety/system_calls.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

namespace {

using Kind = DiskStep::Kind;

/// Steps in one word each, a file by its letter.
std::string wordsOf(const CallWatch& watch) {
    static const std::map<Kind, std::string> words = {
        {Kind::create, "create"},          {Kind::write, "write"},   {Kind::setLength, "length"}, {Kind::syncFile, "sync"},
        {Kind::syncFailed, "sync-failed"}, {Kind::syncFolder, "sync-folder"}, {Kind::rename, "rename"}, {Kind::unlink, "unlink"},    {Kind::makeFolder, "folder"}};
    std::string text;
    for (const DiskStep& step : watch.steps()) {
        text += (text.empty() ? "" : " ") + words.at(step.kind);
    }
    return text;
}

struct OrderFolder : RealFolder {
    Text path(TextView name) { return files.currentFolder() + u"\\" + Text(name); }
};

} // namespace

TEST(SyncOrder, AReplacedFileIsDurableBeforeItGetsItsName) {
    OrderFolder world;
    world.make("a.txt", "old");
    CallWatch watch(world.folder.path());
    world.files.replaceWhole(world.path(u"a.txt"), "new");
    EXPECT_EQ(wordsOf(watch), "create write sync rename sync-folder");
    EXPECT_EQ(watch.steps()[3].target, "a.txt");
}

TEST(SyncOrder, ACopyIsDurableBeforeItGetsItsName) {
    OrderFolder world;
    world.make("a.txt", "bytes");
    CallWatch watch(world.folder.path());
    world.files.copy(world.path(u"a.txt"), world.path(u"b.txt"));
    EXPECT_EQ(wordsOf(watch), "create write sync rename sync-folder");
}

TEST(SyncOrder, AFileThatTakesAPlaceIsDurableBefore) {
    OrderFolder world;
    world.make("a.txt", "bytes");
    world.make("b.txt", "old");
    CallWatch watch(world.folder.path());
    world.files.moveIntoPlace(world.path(u"a.txt"), world.path(u"b.txt"));
    EXPECT_EQ(wordsOf(watch), "sync rename sync-folder");
}

TEST(SyncOrder, BothFoldersOfAMoveAreDurable) {
    OrderFolder world;
    world.files.makeFolder(world.path(u"sub"));
    world.make("sub/a.txt", "bytes");
    CallWatch watch(world.folder.path());
    world.files.moveIntoPlace(world.path(u"sub\\a.txt"), world.path(u"b.txt"));
    EXPECT_EQ(wordsOf(watch), "sync rename sync-folder sync-folder");
}

TEST(SyncOrder, ACopyToAnotherDiskIsDurableBeforeTheFileItCameFromGoes) {
    OrderFolder world;
    world.files.makeFolder(world.path(u"disk"));
    const SecondDisk disk(world.native("disk"));
    world.make("a.txt", "bytes");
    world.make("disk/b.txt", "old");
    CallWatch watch(world.folder.path());
    world.files.moveIntoPlace(world.path(u"a.txt"), world.path(u"disk\\b.txt"));
    EXPECT_EQ(wordsOf(watch), "sync create write sync rename sync-folder unlink sync-folder sync-folder");
    EXPECT_EQ(watch.steps()[5].path, "disk");
    EXPECT_EQ(world.bytesOf("disk/b.txt"), "bytes");
}

TEST(SyncOrder, ARowIsDurableWhenItsWriteReturns) {
    OrderFolder world;
    world.make("a.txt", "old old");
    const auto file = world.files.openRandom(world.path(u"a.txt"));
    CallWatch watch(world.folder.path());
    file->writeDurably(0, "new");
    EXPECT_EQ(wordsOf(watch), "write sync");
}

TEST(SyncOrder, ANewFilesNameIsDurableWhenItIsOpen) {
    OrderFolder world;
    CallWatch watch(world.folder.path());
    const auto file = world.files.openRandom(world.path(u"a.txt"));
    EXPECT_EQ(wordsOf(watch), "create sync-folder");
}

TEST(SyncOrder, ALongRunIsDurableWhenItIsFinished) {
    OrderFolder world;
    world.make("a.txt", "old");
    const auto file = world.files.openBulk(world.path(u"a.txt"));
    CallWatch watch(world.folder.path());
    file->writeDurably(0, "new");
    EXPECT_EQ(wordsOf(watch), "");
    file->finish();
    EXPECT_EQ(wordsOf(watch), "write sync");
}

TEST(SyncOrder, ANewFilesNameOfALongRunIsDurableWhenItIsFinished) {
    OrderFolder world;
    CallWatch watch(world.folder.path());
    const auto file = world.files.openBulk(world.path(u"a.txt"));
    EXPECT_EQ(wordsOf(watch), "create");
    file->writeDurably(0, "new");
    file->finish();
    EXPECT_EQ(wordsOf(watch), "create write sync sync-folder");
    file->finish();
    EXPECT_EQ(wordsOf(watch), "create write sync sync-folder sync");
}

TEST(SyncOrder, ALongRunThatIsHandedOverIsDurableOnceItHasTakenItsPlace) {
    OrderFolder world;
    world.make("b.txt", "old");
    CallWatch watch(world.folder.path());
    {
        const auto file = world.files.openBulk(world.path(u"a.txt"));
        file->writeDurably(0, "new");
        file->handOver();
    }
    EXPECT_EQ(wordsOf(watch), "create write");
    world.files.moveIntoPlace(world.path(u"a.txt"), world.path(u"b.txt"));
    EXPECT_EQ(wordsOf(watch), "create write sync rename sync-folder");
}

TEST(SyncOrder, ADeletionIsDurable) {
    OrderFolder world;
    world.make("a.txt", "old");
    CallWatch watch(world.folder.path());
    world.files.remove(world.path(u"a.txt"));
    EXPECT_EQ(wordsOf(watch), "unlink sync-folder");
}

TEST(SyncOrder, ANewFolderIsDurable) {
    OrderFolder world;
    CallWatch watch(world.folder.path());
    world.files.makeFolder(world.path(u"sub"));
    EXPECT_EQ(wordsOf(watch), "folder sync-folder");
    EXPECT_EQ(watch.steps()[1].path, "");
}

TEST(SyncOrder, ARowWhoseWriteFailsGetsItsOldBytesBack) {
    OrderFolder world;
    const std::string old(600, 'o');
    for (const CallFault& fault : {CallFault{.error = EIO}, CallFault{.error = ENOSPC, .shortWrite = true}}) {
        // The first call of its kind, then the second: the sync behind the write.
        for (int n = 1; n <= 2; ++n) {
            world.make("a.txt", old);
            const auto file = world.files.openRandom(world.path(u"a.txt"));
            CallWatch watch(world.folder.path());
            for (int call = 1; call < 30; ++call) {
                watch.failAt(call, {.error = fault.error, .fromThenOn = false});
                try {
                    file->writeDurably(256, std::string(600, 'n'));
                    watch.heal();
                    file->writeDurably(256, std::string(344, 'o'));
                    world.make("a.txt", old);
                } catch (const RuntimeFailure&) {
                    EXPECT_EQ(world.bytesOf("a.txt"), old) << "call " << call;
                }
            }
        }
    }
}
