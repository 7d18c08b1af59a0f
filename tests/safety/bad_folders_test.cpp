// Tables in places that nobody wishes for. The program may refuse, and says so; it neither crashes nor loses a row, and
// every key goes on answering.

#include "edit/edit_world.h"
#include "safety/folder_image.h"
#include "safety/guarded_run.h"
#include "sheet/bulk_rewrite.h"
#include "sheet/change_in_place.h"
#include "sheet/record_file.h"
#include "start/table_opening.h"
#include "structure/block_operations.h"
#include "structure/clip_paste.h"
#include "structure/record_operations.h"
#include "support/file_size_limit.h"
#include "support/folder_entries.h"
#include "support/forked_child.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <set>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;

/// The keys of the edit screen that move or read.
const std::vector<KeyStroke> movingKeys = {
    plainKey(Key::down), plainKey(Key::up),       plainKey(Key::left),     plainKey(Key::right), plainKey(Key::pageDown),
    plainKey(Key::pageUp), ctrlKey(Key::down), ctrlKey(Key::up), ctrlKey(Key::left), ctrlKey(Key::right), plainKey(Key::enter)};

using Heard = std::vector<std::string>;

const Heard nothing;
const Heard fileFailure = {"ファイル操作に失敗しました"};
/// The same where the table itself can't be read any more, and so is no longer open.
const Heard tableIsGone = {"ﾛﾐｶﾌｧｲﾙでないか、項目設定を記述したﾌｧｲﾙが不良です", "ファイル操作に失敗しました"};

/// What the user hears of a key, apart from speech.
Heard press(EditWorld& world, const KeyStroke& key) {
    return heardOfKey(world, world.zormod, [&] { world.press(key); });
}

/// Presses all moving keys. Each answers: with no message, or with one.
void pressAll(EditWorld& world) {
    for (const KeyStroke& key : movingKeys) {
        EXPECT_LE(press(world, key).size(), 1U);
        EXPECT_GE(world.record(), 1);
        EXPECT_NO_THROW(getCell(world.zormod, world.zormod.position.curItem));
    }
}

/// Ends the program, as far as files and claims go.
void letGo(TestWorld& world) {
    closeAllFiles(world.zormod);
    world.zormod.files.tableLock.reset();
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

/// A table of three gibibytes, of which the disk holds next to nothing: one record, and NULs.
struct LongWorld : EditWorld {
    static constexpr auto records = static_cast<std::int32_t>(3LL * 1024 * 1024 * 1024 / recordLength);

    LongWorld() {
        numbered(1);
        fs::resize_file(folder.path() + "/t.txt", std::uintmax_t{records} * recordLength);
        openTable("t.txt");
        show();
    }
    /// One record as the disk has it.
    std::string recordAt(std::int64_t record) const {
        std::ifstream in(folder.path() + "/t.txt", std::ios::binary);
        in.seekg((record - 1) * recordLength);
        std::string bytes(recordLength, ' ');
        in.read(bytes.data(), recordLength);
        return bytes;
    }
};

using Names = std::set<std::string>;

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
    EXPECT_EQ(press(world, plainKey(Key::down)), fileFailure);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    watch.heal();
    closeFile(world.zormod, 1);
    openDataFile(world.zormod);
    EXPECT_EQ(press(world, plainKey(Key::down)), nothing);
    EXPECT_EQ(world.onDisk(1, 4), "x   ");
}

TEST(BadFolders, AReadOnlyTableInAReadOnlyFolderIsReadAndNeverChanged) {
    EditWorld world;
    world.numbered(30);
    letGo(world);
    const FolderImage before = imageOf(world.folder.path());
    for (const auto& [name, bytes] : before) {
        fs::permissions(world.folder.path() + "/" + name, fs::perms(0444));
    }
    fs::permissions(world.folder.path(), fs::perms(0555));
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        RunningCopy copy(world);
        bool opens = false;
        const bool isSilent =
            heardOf(world, copy.zormod, [&] { opens = copy.open("t.txt") && recordCount(copy.zormod) == 30; }).empty();
        const auto refuses = [&](const std::function<void()>& work) {
            return heardOf(world, copy.zormod, work) == fileFailure && hasTable(copy.zormod);
        };
        return opens && isSilent && refuses([&] { swapTwo(copy.zormod, BulkRoad::workFile); }) &&
               refuses([&] { swapTwo(copy.zormod, BulkRoad::inPlace); }) &&
               refuses([&] {
                   storeSlot(copy.zormod, currentSlot(copy.zormod), "x");
                   commitRecord(copy.zormod);
               });
    }));
    EXPECT_EQ(imageOf(world.folder.path()), before);
    fs::permissions(world.folder.path(), fs::perms(0755));
}

TEST(BadFolders, AFolderThatVanishesLeavesEveryKeyAnswering) {
    EditWorld world;
    world.numbered(30);
    fs::remove_all(world.folder.path());
    world.type(u"x");
    world.enter();
    EXPECT_EQ(press(world, plainKey(Key::down)), fileFailure); // the typed row has no place to go
    EXPECT_EQ(world.record(), 1);
    pressAll(world);
    EXPECT_EQ(heardOf(world, world.zormod, [&] { swapTwo(world.zormod, BulkRoad::workFile); }), tableIsGone);
    EXPECT_FALSE(hasTable(world.zormod));
    pressAll(world);
    EXPECT_FALSE(fs::exists(world.folder.path())) << "what is gone is not made again, empty";
}

TEST(BadFolders, AMediumThatIsPulledAndComesBackGetsTheTypedRow) {
    EditWorld world;
    world.numbered(30);
    const std::string pulled = world.folder.path() + "-pulled";
    world.type(u"x");
    world.enter();
    fs::rename(world.folder.path(), pulled);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(press(world, plainKey(Key::down)), fileFailure);
        EXPECT_EQ(world.record(), 1);
    }
    fs::rename(pulled, world.folder.path());
    EXPECT_EQ(press(world, plainKey(Key::down)), nothing);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.onDisk(1, 4), "x   ");
    EXPECT_EQ(world.recordsOnDisk(), 30U);
}

TEST(BadFolders, AFullDiskRefusesTheNewRowAndKeepsItForTheNextTry) {
    EditWorld world;
    world.numbered(2);
    const std::string before = world.bytesOf("t.txt");
    world.stand(3, 0);
    world.type(u"neu");
    world.enter();
    {
        const FileSizeLimit full(2 * recordLength + 100);
        EXPECT_EQ(press(world, plainKey(Key::down)), fileFailure);
        EXPECT_EQ(world.bytesOf("t.txt"), before);
        EXPECT_EQ(world.record(), 3);
    }
    EXPECT_EQ(press(world, plainKey(Key::down)), nothing);
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, before.size()), before);
    EXPECT_EQ(world.onDisk(3, 4), "neu ");
    EXPECT_EQ(world.recordsOnDisk(), 3U);
}

TEST(BadFolders, AFullDiskRefusesARewriteAndLeavesNothingOfIt) {
    for (const BulkRoad road : {BulkRoad::workFile, BulkRoad::inPlace}) {
        EditWorld world;
        world.numbered(30);
        const FolderImage before = imageOf(world.folder.path());
        {
            const FileSizeLimit full(recordLength + 100);
            EXPECT_EQ(heardOf(world, world.zormod, [&] { swapTwo(world.zormod, road); }), fileFailure);
        }
        EXPECT_EQ(world.bytesOf("t.txt"), before.at("t.txt"));
        pressAll(world);
        letGo(world);
        EXPECT_TRUE(RunningCopy(world).open("t.txt"));
        EXPECT_EQ(imageOf(world.folder.path()), before);
    }
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

TEST(BadFolders, ALinkToAFileThatIsNotThereYetIsATableWithoutRecords) {
    FolderWorld world;
    world.make("t.txt");
    fs::create_directory(world.native("real"));
    fs::remove(world.native("t.txt"));
    fs::create_symlink("real/t.txt", world.native("t.txt"));
    RunningCopy copy(world);
    EXPECT_EQ(heardOf(world, copy.zormod, [&] { EXPECT_TRUE(copy.open("t.txt")); }), nothing);
    ASSERT_TRUE(hasTable(copy.zormod));
    EXPECT_EQ(recordCount(copy.zormod), 0);
    storeSlot(copy.zormod, currentSlot(copy.zormod), "x");
    commitRecord(copy.zormod);
    EXPECT_TRUE(fs::is_symlink(world.native("t.txt")));
    EXPECT_EQ(world.bytesOf("real/t.txt"), endedRecord("x"));
}

TEST(BadFolders, ALinkThatLeadsNowhereIsToldOnceAndLeftAsItIs) {
    const std::pair<std::string, std::string> namesOfAPair[] = {{"t.txt", "kt.txt"}, {"kt.txt", "t.txt"}};
    for (const auto& [link, other] : namesOfAPair) {
        // Into a folder that isn't there, to itself, and round a corner to itself.
        for (const std::string& target : {std::string("nowhere/x"), link, std::string("corner")}) {
            FolderWorld world;
            world.make("t.txt");
            fs::remove(world.native(link));
            fs::create_symlink(target, world.native(link));
            fs::create_symlink(link, world.native("corner"));
            const std::string before = world.bytesOf(other);
            RunningCopy copy(world);
            EXPECT_EQ(heardOf(world, copy.zormod, [&] { EXPECT_FALSE(copy.open("t.txt")); }).size(), 1U) << target;
            EXPECT_FALSE(hasTable(copy.zormod)) << target;
            EXPECT_EQ(fs::read_symlink(world.native(link)), target);
            EXPECT_EQ(entriesOf(world.folder.path()), (Names{"corner", "kt.txt", "t.txt"})) << target;
            EXPECT_EQ(world.bytesOf(other), before) << target;
        }
    }
}

TEST(BadFolders, ATableInALinkedFolderStaysThereAndSoDoesTheLink) {
    FolderWorld world;
    fs::create_directory(world.native("real"));
    world.make("t.txt");
    for (const char* name : {"t.txt", "kt.txt"}) {
        fs::rename(world.native(name), world.native(std::string("real/") + name));
    }
    fs::create_directory_symlink("real", world.native("road"));
    RunningCopy copy(world);
    ASSERT_TRUE(copy.open("road/t.txt"));
    for (const auto& [road, first] : {std::pair(BulkRoad::workFile, "2"), std::pair(BulkRoad::inPlace, "1")}) {
        EXPECT_EQ(swapTwo(copy.zormod, road), BulkEnd::done);
        EXPECT_EQ(world.bytesOf("real/t.txt").substr(0, 1), first);
    }
    changeInPlace(copy.zormod, {.spans = {RecordSpan{2, 2}}}, [](RecordChanges& run) { run.write(2, "changed"); });
    EXPECT_EQ(world.bytesOf("real/t.txt").substr(recordLength, 8), "changed ");
    copy.zormod.file.tableMemo = u"other";
    writeItemFile(copy.zormod, copy.zormod.file.fileName, copy.zormod.file.fileDrive);
    EXPECT_NE(world.bytesOf("real/kt.txt").find("other"), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(world.native("road")));
    EXPECT_EQ(entriesOf(world.native("real")), (Names{"kt.txt", "t.txt"}));
    EXPECT_EQ(entriesOf(world.folder.path()), (Names{"real", "road"}));
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
        bool opened = false;
        const Heard heard = heardOf(world, copy.zormod, [&] {
            opened = openInsteadOfOld(copy.zormod, path.substr(2), path.substr(0, 1));
            if (opened) {
                EXPECT_EQ(swapTwo(copy.zormod, BulkRoad::inPlace), BulkEnd::done);
            }
        });
        std::ifstream in(table, std::ios::binary);
        const std::string now{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        const std::string old = world.bytesOf("t.txt");
        const std::string swapped = old.substr(recordLength) + old.substr(0, recordLength);
        EXPECT_TRUE(opened || heard.size() == 1) << length;
        EXPECT_TRUE(now == (heard.empty() ? swapped : old)) << length;
        EXPECT_LE(heard.size(), length > 4000 ? 1U : 0U) << length;
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), fs::exists(folder + "/kt.txt") ? 2 : 1) << length;
    }
}

TEST(BadFolders, ATableOfThreeGibibytesIsWalkedAndGrowsAtOnce) {
    LongWorld world;
    EXPECT_EQ(recordCount(world.zormod), LongWorld::records);
    world.press(ctrlKey(Key::down));
    EXPECT_EQ(world.record(), LongWorld::records);
    world.press(Key::down);
    world.type(u"ende");
    world.enter();
    world.press(Key::up);
    EXPECT_EQ(recordCount(world.zormod), LongWorld::records + 1);
    const std::string last = world.recordAt(LongWorld::records + 1);
    EXPECT_EQ(last.substr(0, 4), "ende");
    EXPECT_EQ(last.substr(254), "\r\n");
}

TEST(BadFolders, RecordsAtTheEndOfThreeGibibytesAreChangedWhereTheyStand) {
    LongWorld world;
    constexpr std::int32_t last = LongWorld::records;
    world.press(ctrlKey(Key::down));
    world.type(u"ende");
    world.enter();
    world.press(Key::up);
    ASSERT_EQ(world.recordAt(last).substr(0, 4), "ende");
    world.zormod.selection = {.selectionKind = 1, .selRecordFrom = last, .selRecordTo = last};
    world.zormod.position.curRecord = last - 1;
    world.zormod.position.curItem = 1;
    copyBlock(world.zormod);
    EXPECT_EQ(world.recordAt(last - 1).substr(4, 10), "ende      ");
    EXPECT_EQ(world.recordAt(last).substr(0, 4), "ende");
    EXPECT_EQ(recordCount(world.zormod), last);

    world.writeFile("ZORCLip", " 2 \r\n 1 \r\n 2 \r\n 1 \r\n 1 \r\n\"clip1\"\r\n\"clip2\"\r\n");
    world.zormod.position.curRecord = last;
    pasteOver(world.zormod);
    EXPECT_EQ(world.recordAt(last).substr(0, 14), "endeclip1     ");
    EXPECT_EQ(world.recordAt(last + 1).substr(0, 14), "    clip2     ");
    EXPECT_EQ(recordCount(world.zormod), last + 1);
    EXPECT_EQ(entriesOf(world.folder.path()), (Names{"ZORCLip", "ZORCLip.bak", "kt.txt", "t.txt"}));
}

TEST(BadFolders, AnInsertionIntoThreeGibibytesThatFindsNoRoomLeavesThemAsTheyAre) {
    LongWorld world;
    world.stand(LongWorld::records, 0);
    {
        const FileSizeLimit full(1 << 20);
        EXPECT_EQ(heardOf(world, world.zormod, [&] { insertRecords(world.zormod, 1); }), fileFailure);
    }
    ASSERT_TRUE(hasTable(world.zormod));
    EXPECT_EQ(recordCount(world.zormod), LongWorld::records);
    EXPECT_EQ(world.recordAt(1).substr(4, 3), "n1 ");
    EXPECT_EQ(world.recordAt(LongWorld::records), std::string(recordLength, '\0'));
    EXPECT_EQ(entriesOf(world.folder.path()), (Names{"kt.txt", "t.txt"}));
}

TEST(BadFolders, ATableCutBehindTheProgramsBackIsToldAndNotFilledUpAgain) {
    for (const int records : {0, 1, 3, 38}) {
        for (const bool isTyped : {false, true}) {
            EditWorld world;
            world.numbered(60);
            world.stand(40, 1);
            fs::resize_file(world.folder.path() + "/t.txt", static_cast<std::uintmax_t>(records) * recordLength + 17);
            const std::string cut = world.bytesOf("t.txt");
            if (isTyped) {
                world.type(u"x");
                world.enter();
            }
            EXPECT_EQ(press(world, plainKey(Key::down)), fileFailure);
            EXPECT_EQ(world.record(), records + 1);
            for (const KeyStroke& key : movingKeys) {
                EXPECT_EQ(press(world, key), nothing);
                EXPECT_LE(world.record(), records + 1);
            }
            EXPECT_EQ(world.bytesOf("t.txt"), cut);
        }
    }
}

TEST(BadFolders, ATableCutRightAboveTheRowTakesItAsItsNewLastOne) {
    EditWorld world;
    world.numbered(60);
    world.stand(40, 1);
    fs::resize_file(world.folder.path() + "/t.txt", 39 * recordLength);
    EXPECT_EQ(press(world, plainKey(Key::down)), nothing);
    EXPECT_EQ(world.recordsOnDisk(), 40U);
    EXPECT_EQ(world.onDisk(40, 8), "    n40 ");
}

TEST(BadFolders, ATableThatGrowsBehindTheProgramsBackKeepsWhatHasCome) {
    EditWorld world;
    world.numbered(60);
    world.stand(60, 1);
    std::string grown = world.bytesOf("t.txt");
    for (int i = 0; i < 5; ++i) {
        grown += std::string(254, static_cast<char>('a' + i)) + "\r\n";
    }
    world.writeFile("t.txt", grown);
    world.type(u"x");
    world.enter();
    for (const KeyStroke& key : movingKeys) {
        EXPECT_EQ(press(world, key), nothing);
    }
    EXPECT_EQ(world.bytesOf("t.txt").substr(60 * recordLength), grown.substr(60 * recordLength));
    EXPECT_EQ(world.onDisk(60, 8), "    x   ");
    press(world, ctrlKey(Key::down));
    EXPECT_EQ(world.record(), 65);
    EXPECT_EQ(world.cell(0), "eeee");
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
