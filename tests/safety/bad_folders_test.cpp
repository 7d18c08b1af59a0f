// Tables in places that nobody wishes for. The program may refuse, and says so; it neither crashes nor loses a row, and
// every key goes on answering.

#include "edit/edit_world.h"
#include "platform/failure.h"
#include "safety/system_calls.h"
#include "safety/writing_operations.h"
#include "sheet/bulk_rewrite.h"
#include "sheet/failure_recovery.h"
#include "sheet/record_file.h"
#include "start/table_opening.h"
#include "support/file_size_limit.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// The keys of the edit screen that move or read.
const std::vector<KeyStroke> movingKeys = {
    plainKey(Key::down), plainKey(Key::up),       plainKey(Key::left),     plainKey(Key::right), plainKey(Key::pageDown),
    plainKey(Key::pageUp), ctrlKey(Key::down), ctrlKey(Key::up), ctrlKey(Key::left), ctrlKey(Key::right), plainKey(Key::enter)};

/// Runs a key as the guard round the handlers does. True if it failed; the user is told then.
bool fails(EditWorld& world, const std::function<void()>& key) {
    const Position before = world.zormod.position;
    try {
        key();
        return false;
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::file);
        if (failure.rowWrite) {
            world.zormod.position = before;
        }
        world.dialogs.expectedMessages += 2;
        putStateRight(world.zormod, failure);
        return true;
    }
}

struct FolderWorld : TestWorld {
    FolderWorld() { forms.loaded.insert(u"Form1"); }
    std::string native(const std::string& name) const { return folder.path() + "/" + name; }
    void make(const std::string& name) { makeTable(name, {{u"ID", u"L", 4}, {u"氏名", u"L", 8}}, {{u"1", u"a"}, {u"2", u"b"}}); }
};

BulkEnd swapTwo(ZORMOD& zormod, BulkRoad road) {
    return bulkRewrite(zormod, {.name = u"記録移動中", .road = road}, [](BulkRun& run) {
        run.copy(2, 2);
        run.copy(1, 1);
    });
}

} // namespace

TEST(BadFolders, AFolderThatBecomesReadOnlyRefusesTheRowAndKeepsIt) {
    EditWorld world;
    world.numbered(30);
    const std::string before = world.bytesOf("t.txt");
    CallWatch watch(world.folder.path());
    watch.failAt(1, {.error = EACCES, .fromThenOn = true});
    closeFile(world.zormod, 1);
    openDataFile(world.zormod); // for reading only now
    world.type(u"x");
    world.enter();
    EXPECT_TRUE(fails(world, [&] { world.press(Key::down); }));
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    watch.heal();
    closeFile(world.zormod, 1);
    openDataFile(world.zormod);
    EXPECT_FALSE(fails(world, [&] { world.press(Key::down); }));
    EXPECT_EQ(world.onDisk(1, 4), "x   ");
}

TEST(BadFolders, AFolderThatVanishesLeavesEveryKeyAnswering) {
    EditWorld world;
    world.numbered(30);
    fs::remove_all(world.folder.path());
    world.type(u"x");
    world.enter();
    EXPECT_TRUE(fails(world, [&] { world.press(Key::down); })); // the typed row has no place to go
    EXPECT_EQ(world.record(), 1);
    for (const KeyStroke& key : movingKeys) {
        fails(world, [&] { world.press(key); });
    }
    EXPECT_TRUE(fails(world, [&] { swapTwo(world.zormod, BulkRoad::workFile); }));
    for (const KeyStroke& key : movingKeys) {
        EXPECT_NO_THROW(fails(world, [&] { world.press(key); }));
    }
}

TEST(BadFolders, AFullDiskRefusesTheNewRowAndKeepsItForTheNextTry) {
    EditWorld world;
    world.numbered(2);
    world.stand(3, 0);
    world.type(u"neu");
    world.enter();
    {
        const FileSizeLimit full(2 * recordLength + 100);
        EXPECT_TRUE(fails(world, [&] { world.press(Key::down); }));
        EXPECT_EQ(world.bytesOf("t.txt").size(), 2U * recordLength);
        EXPECT_EQ(world.record(), 3);
        EXPECT_TRUE(fails(world, [&] { swapTwo(world.zormod, BulkRoad::inPlace); }) || world.recordsOnDisk() == 2);
        world.stand(3, 0);
        world.type(u"neu");
        world.enter();
    }
    EXPECT_FALSE(fails(world, [&] { world.press(Key::down); }));
    EXPECT_EQ(world.onDisk(3, 4), "neu ");
}

TEST(BadFolders, ATableBehindALinkKeepsItsLink) {
    FolderWorld world;
    fs::create_directory(world.native("real"));
    world.make("t.txt");
    for (const char* name : {"t.txt", "kt.txt"}) {
        fs::rename(world.native(name), world.native(std::string("real/") + name));
        fs::create_symlink(std::string("real/") + name, world.native(name));
    }
    for (const BulkRoad road : {BulkRoad::workFile, BulkRoad::inPlace}) {
        RunningCopy copy(world);
        ASSERT_TRUE(copy.open("t.txt"));
        const std::string first = world.bytesOf("t.txt").substr(0, 1);
        EXPECT_EQ(swapTwo(copy.zormod, road), BulkEnd::done);
        EXPECT_TRUE(fs::is_symlink(world.native("t.txt")));
        EXPECT_EQ(world.bytesOf("real/t.txt").substr(0, 1), first == "1" ? "2" : "1");
        copy.zormod.file.tableMemo = u"other";
        writeItemFile(copy.zormod, copy.zormod.file.fileName, copy.zormod.file.fileDrive);
        EXPECT_TRUE(fs::is_symlink(world.native("kt.txt")));
        EXPECT_NE(world.bytesOf("real/kt.txt").find("other"), std::string::npos);
    }
}

TEST(BadFolders, ANameOutsideTheCodePageIsATableLikeAnyOther) {
    FolderWorld world;
    world.make("t.txt");
    fs::rename(world.native("t.txt"), world.native("表\U0001F600é.txt"));
    fs::rename(world.native("kt.txt"), world.native("k表\U0001F600é.txt"));
    RunningCopy copy(world);
    const Text path = world.zormod.file.programFolder + u"表\U0001F600é.txt";
    ASSERT_TRUE(openInsteadOfOld(copy.zormod, path.substr(2), path.substr(0, 1)));
    EXPECT_EQ(swapTwo(copy.zormod, BulkRoad::workFile), BulkEnd::done);
    EXPECT_EQ(world.bytesOf("表\U0001F600é.txt").substr(0, 4), "2   ");
    EXPECT_EQ(recordCount(copy.zormod), 2);
}

TEST(BadFolders, APathOfFourThousandBytesIsUsedOrRefusedButNeverHalfUsed) {
    for (const std::size_t length : {3900U, 4060U, 4080U, 4090U}) {
        FolderWorld world;
        world.make("t.txt");
        std::string folder = world.folder.path();
        while (folder.size() + 8 < length) {
            const std::size_t step = std::min<std::size_t>(200, length - 7 - folder.size());
            folder += "/" + std::string(step - 1, 'd');
        }
        std::error_code none;
        fs::create_directories(folder, none);
        ASSERT_FALSE(none) << none.message();
        const std::string table = folder + "/t.txt";
        ASSERT_GE(table.size(), length - 3);
        fs::copy_file(world.native("t.txt"), table);
        fs::copy_file(world.native("kt.txt"), folder + "/kt.txt", none);
        RunningCopy copy(world);
        const Text path = world.files.fromCommandLine(Text(table.begin(), table.end()));
        world.dialogs.expectedMessages = 1;
        bool opened = false;
        EditScreen edit(copy.zormod);
        try {
            opened = openInsteadOfOld(copy.zormod, path.substr(2), path.substr(0, 1));
            if (opened) {
                EXPECT_EQ(swapTwo(copy.zormod, BulkRoad::inPlace), BulkEnd::done);
            }
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.kind, FailureKind::file);
        }
        std::ifstream in(table, std::ios::binary);
        const std::string now{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        EXPECT_EQ(now.size(), 2U * recordLength);
        EXPECT_TRUE(opened || length > 4000) << length;
    }
}

TEST(BadFolders, ATableOfThreeGibibytesIsWalkedAndGrowsAtOnce) {
    EditWorld world;
    world.numbered(1);
    constexpr std::int64_t records = 3LL * 1024 * 1024 * 1024 / recordLength;
    fs::resize_file(world.folder.path() + "/t.txt", records * recordLength);
    world.openTable("t.txt");
    world.show();
    EXPECT_EQ(recordCount(world.zormod), records);
    world.press(ctrlKey(Key::down));
    EXPECT_EQ(world.record(), records);
    world.press(Key::down);
    world.type(u"ende");
    world.enter();
    world.press(Key::up);
    EXPECT_EQ(recordCount(world.zormod), records + 1);
    std::ifstream in(world.folder.path() + "/t.txt", std::ios::binary);
    in.seekg(records * recordLength);
    std::string last(recordLength, ' ');
    in.read(last.data(), recordLength);
    EXPECT_EQ(last.substr(0, 4), "ende");
    EXPECT_EQ(last.substr(254), "\r\n");
}

TEST(BadFolders, AFileThatShrinksOrGrowsBehindTheProgramsBackLeavesEveryKeyAnswering) {
    for (const int records : {0, 1, 3, 200}) {
        EditWorld world;
        world.numbered(60);
        world.stand(40, 1);
        fs::resize_file(world.folder.path() + "/t.txt", static_cast<std::uintmax_t>(records) * recordLength + 17);
        for (const KeyStroke& key : movingKeys) {
            fails(world, [&] { world.press(key); });
            EXPECT_GE(world.record(), 1);
            EXPECT_NO_THROW(getCell(world.zormod, world.zormod.position.curItem));
        }
        EXPECT_GE(currentSlot(world.zormod), 2);
    }
}

TEST(BadFolders, ATableOnAnotherFileSystemIsSwappedByACopy) {
    const fs::path other = "/dev/shm";
    std::error_code none;
    if (!fs::is_directory(other, none) || access(other.c_str(), W_OK) != 0) {
        FAIL() << "this test needs a second file system at /dev/shm";
    }
    FolderWorld world;
    world.make("t.txt");
    std::string pattern = (other / "romika-test-XXXXXX").string();
    const fs::path folder = mkdtemp(pattern.data());
    for (const char* name : {"t.txt", "kt.txt"}) {
        fs::copy_file(world.native(name), folder / name);
    }
    {
        RunningCopy copy(world);
        const std::string table = (folder / "t.txt").string();
        const Text path = world.files.fromCommandLine(Text(table.begin(), table.end()));
        EXPECT_TRUE(openInsteadOfOld(copy.zormod, path.substr(2), path.substr(0, 1)));
        EXPECT_EQ(swapTwo(copy.zormod, BulkRoad::workFile), BulkEnd::done);
    }
    std::ifstream in(folder / "t.txt", std::ios::binary);
    std::string first(4, ' ');
    in.read(first.data(), 4);
    EXPECT_EQ(first, "2   ");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
    fs::remove_all(folder);
}
