#include "sheet/cell.h"
#include "sheet/record_file.h"
#include "sheet/record_window.h"
#include "support/faulty_files.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

const std::vector<TestWorld::Item> shape = {{u"ID", u"L", 4}, {u"name", u"L", 8}};

std::vector<std::vector<std::u16string_view>> numbered(int count, std::vector<std::u16string>& store) {
    store.clear();
    store.reserve(static_cast<std::size_t>(count));
    std::vector<std::vector<std::u16string_view>> rows;
    for (int i = 1; i <= count; ++i) {
        std::u16string digits;
        for (int n = i; n > 0; n /= 10) {
            digits.insert(digits.begin(), static_cast<char16_t>(u'0' + n % 10));
        }
        store.push_back(digits);
        rows.push_back({store.back()});
    }
    return rows;
}

/// A table of `count` records whose ID is their number.
struct WindowWorld : TestWorld {
    explicit WindowWorld(int count) {
        std::vector<std::u16string> store;
        table(shape, numbered(count, store));
    }
    std::string rowId(int row) { return zormod.window.recordWindow[rowSlot(row)].substr(0, 4); }
    void stand(std::int32_t record) {
        zormod.position.curRecord = record;
        refillWindow(zormod, record);
    }
};

} // namespace

TEST(RecordWindow, RefillPutsTheRecordInTheMiddle) {
    WindowWorld world(100);
    refillWindow(world.zormod, 50);
    EXPECT_EQ(world.zormod.position.windowFirst, 41);
    EXPECT_EQ(world.rowId(10), "50  ");
    EXPECT_EQ(world.rowId(1), "41  ");
    EXPECT_EQ(world.rowId(20), "60  ");
    refillWindow(world.zormod, 3);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(world.rowId(3), "3   ");
}

TEST(RecordWindow, HalfOfAnOddNumberOfRowsIsRoundedDown) {
    WindowWorld world(100);
    world.zormod.position.windowRows = 7;
    refillWindow(world.zormod, 50);
    EXPECT_EQ(world.zormod.position.windowFirst, 48);
    EXPECT_EQ(world.rowId(3), "50  ");
    EXPECT_EQ(world.rowId(7), "54  ");
}

TEST(RecordWindow, RowsPastTheEndAreBlankAfterARefill) {
    WindowWorld world(12);
    refillWindow(world.zormod, 12);
    EXPECT_EQ(world.zormod.position.windowFirst, 3);
    EXPECT_EQ(world.rowId(10), "12  ");
    EXPECT_EQ(world.zormod.window.recordWindow[rowSlot(11)].substr(0, 254), world.zormod.window.blankLine);
}

TEST(RecordWindow, AFreshTableShowsSlashesPastItsEnd) {
    WindowWorld world(2);
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    EXPECT_EQ(world.zormod.position.curItem, 0);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(world.rowId(2), "2   ");
    EXPECT_EQ(world.rowId(3), "////");
}

TEST(RecordWindow, AnEmptyFileHasOneBlankRowAndSlashes) {
    WindowWorld world(0);
    EXPECT_EQ(recordCount(world.zormod), 0);
    EXPECT_EQ(world.zormod.window.recordWindow[2].substr(0, 254), world.zormod.window.blankLine);
    EXPECT_EQ(world.rowId(2), "////");
    setSlotCell(world.zormod, 2, u"new", 1);
    commitRecord(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt"), "    new     " + std::string(242, ' ') + "\r\n");
}

TEST(RecordWindow, ScrollingUpKeepsTheRecordInItsRow) {
    WindowWorld world(100);
    world.stand(50);
    world.zormod.position.curRecord = 49;
    scrollWindowUp(world.zormod);
    EXPECT_EQ(world.zormod.position.windowFirst, 40);
    EXPECT_EQ(world.rowId(10), "49  ");
    EXPECT_EQ(world.rowId(1), "40  ");
    EXPECT_EQ(world.rowId(20), "59  ");
}

TEST(RecordWindow, ScrollingStopsAtTheStart) {
    WindowWorld world(100);
    world.stand(5);
    world.zormod.position.curRecord = 4;
    scrollWindowUp(world.zormod);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(world.rowId(1), "1   ");
}

TEST(RecordWindow, ScrollingShowsWhatOthersRowsHoldWithoutRereadingThem) {
    WindowWorld world(100);
    world.stand(50);
    setSlotCell(world.zormod, rowSlot(3), u"mine", 1);
    world.zormod.position.curRecord = 49;
    scrollWindowUp(world.zormod);
    EXPECT_EQ(world.zormod.window.recordWindow[rowSlot(4)].substr(4, 4), "mine");
}

TEST(RecordWindow, CommitWritesTheRowWhereItBelongs) {
    WindowWorld world(30);
    world.stand(20);
    const std::string before = world.bytesOf("t.txt");
    setSlotCell(world.zormod, currentSlot(world.zormod), u"山田", 1);
    commitRecord(world.zormod);
    std::string expected = before;
    expected.replace(19 * 256 + 4, 8, "\x8E\x52\x93\x63    ");
    EXPECT_EQ(world.bytesOf("t.txt"), expected);
    EXPECT_EQ(world.screen.titles, 0);
}

TEST(RecordWindow, CommitRestoresTheLineEndThatTheLastItemDropped) {
    WindowWorld world(1);
    setSlotCell(world.zormod, 2, u"x", 1);
    EXPECT_EQ(world.zormod.window.recordWindow[2].substr(254), "  ");
    commitRecord(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt").substr(254), "\r\n");
}

TEST(RecordWindow, CommitAtTheEndUpdatesTheTitle) {
    WindowWorld world(2);
    world.stand(2);
    commitRecord(world.zormod);
    EXPECT_EQ(world.screen.titles, 1);
    const Text path = u"C" + (u":" + world.zormod.file.fileName);
    EXPECT_EQ(world.screen.title, u"ロミカ (" + path + u"/記録数:2)");
}

TEST(RecordWindow, ABlankRowBehindTheEndNeverBecomesARecord) {
    WindowWorld world(2);
    world.stand(3);
    commitRecord(world.zormod);
    EXPECT_EQ(recordCount(world.zormod), 2);
    storeSlot(world.zormod, currentSlot(world.zormod), world.zormod.window.slashLine);
    commitRecord(world.zormod);
    EXPECT_EQ(recordCount(world.zormod), 2);
    setSlotCell(world.zormod, currentSlot(world.zormod), u"x", 1);
    commitRecord(world.zormod);
    EXPECT_EQ(recordCount(world.zormod), 3);
}

TEST(RecordWindow, ABlankRecordInsideStaysARecord) {
    WindowWorld world(3);
    world.stand(2);
    storeSlot(world.zormod, currentSlot(world.zormod), world.zormod.window.blankLine);
    commitRecord(world.zormod);
    EXPECT_EQ(recordCount(world.zormod), 3);
    EXPECT_EQ(world.bytesOf("t.txt").substr(256, 256), std::string(254, ' ') + "\r\n");
}

TEST(RecordWindow, ARecordOfSlashesInsideTheFileIsWritten) {
    WindowWorld world(3);
    world.stand(2);
    storeSlot(world.zormod, currentSlot(world.zormod), world.zormod.window.slashLine);
    commitRecord(world.zormod);
    EXPECT_EQ(recordCount(world.zormod), 3);
    EXPECT_EQ(world.bytesOf("t.txt").substr(256, 256), std::string(254, '/') + "\r\n");
}

TEST(RecordWindow, AnUnchangedRowIsNotWritten) {
    WindowWorld world(3);
    FaultyFiles faulty(world.files);
    Platform platform = world.zormod.platform;
    ZORMOD zormod(Platform{platform.clipboard, platform.clock, platform.beeper, faulty, platform.codePage,
                           platform.dialogs, platform.screen, platform.commands, platform.forms, platform.eventLoop, platform.printer});
    zormod.file = world.zormod.file;
    ASSERT_EQ(readItemFile(zormod, zormod.file.fileName, zormod.file.fileDrive), u"");
    openDataFile(zormod);
    fillFirstWindow(zormod);
    faulty.failWrites();
    EXPECT_NO_THROW(commitRecord(zormod));
    setSlotCell(zormod, currentSlot(zormod), u"z", 1);
    try {
        commitRecord(zormod);
        FAIL() << "the write must fail";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::file);
        EXPECT_TRUE(failure.rowWrite);
    }
    EXPECT_EQ(zormod.window.recordWindow[2].substr(4, 1), "z");
}

TEST(RecordWindow, ATableReplacedBehindTheProgramsBackIsNoticedOnWriting) {
    WindowWorld world(2);
    world.writeFile("new.txt", std::string(512, 'n'));
    ASSERT_EQ(std::rename((world.folder.path() + "/new.txt").c_str(), (world.folder.path() + "/t.txt").c_str()), 0);
    setSlotCell(world.zormod, 2, u"x", 1);
    EXPECT_THROW(commitRecord(world.zormod), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t.txt"), std::string(512, 'n'));
}

TEST(RecordWindow, RefreshAfterBulkGivesTheSelectionUpUnlessToldNotTo) {
    WindowWorld world(9);
    for (const int mode : {0, 1}) {
        world.zormod.taskWord = u"work";
        world.zormod.selection.selectionKind = 2;
        world.zormod.position.curRecord = 7;
        refreshAfterBulk(world.zormod, mode);
        EXPECT_EQ(world.zormod.taskWord, u"");
        EXPECT_EQ(world.zormod.selection.selectionKind, mode == 1 ? 2 : 0);
        EXPECT_EQ(world.rowId(7), "7   ");
    }
    EXPECT_EQ(world.screen.maskHides, 1);
    EXPECT_EQ(world.screen.shownCells, 2);
    EXPECT_EQ(world.screen.titles, 2);
}

TEST(RecordWindow, SlotsAreAlwaysARecordLong) {
    TestWorld world;
    storeSlot(world.zormod, 1, "ab");
    EXPECT_EQ(world.zormod.window.recordWindow[1], "ab" + Bytes(254, ' '));
    storeSlot(world.zormod, 1, Bytes(400, 'x'));
    EXPECT_EQ(world.zormod.window.recordWindow[1], Bytes(256, 'x'));
    EXPECT_THROW(storeSlot(world.zormod, 102, "ab"), RuntimeFailure);
}
