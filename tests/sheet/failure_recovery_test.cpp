#include "sheet/cell.h"
#include "sheet/failure_recovery.h"
#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

struct RecoveryWorld : TestWorld {
    RecoveryWorld() { table({{u"ID", u"L", 4}, {u"a", u"L", 8}}, {{u"1", u"x"}, {u"2", u"y"}}); }
};

} // namespace

TEST(FailureRecovery, AfterAFailedRowWriteTheTypedRowStays) {
    RecoveryWorld world;
    setSlotCell(world.zormod, 2, u"typed", 1);
    world.zormod.taskWord = u"work";
    putStateRight(world.zormod, {FailureKind::file, true});
    EXPECT_EQ(getCell(world.zormod, 1), u"typed   ");
    EXPECT_EQ(world.zormod.taskWord, u"");
    EXPECT_TRUE(hasTable(world.zormod));
}

TEST(FailureRecovery, AfterAnythingElseTheTableIsAsOnTheDisk) {
    RecoveryWorld world;
    setSlotCell(world.zormod, 2, u"lost", 1);
    world.zormod.items.itemWidth[1] = 3;
    world.zormod.items.itemStart[1] = 1;
    world.zormod.selection.selectionKind = 3;
    world.forms.open(u"frmHANI");
    world.forms.open(u"frmMSSG");
    world.zormod.results.answers[0] = 1.0;
    world.zormod.files.byNumber[3] = world.files.openRandom(world.zormod.file.programFolder + u"u.txt");
    putStateRight(world.zormod, {FailureKind::subscript, false});
    EXPECT_EQ(getCell(world.zormod, 1), u"x       ");
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_TRUE(world.forms.loaded.empty());
    EXPECT_EQ(std::get<double>(world.zormod.results.answers[0]), 0.0);
    EXPECT_FALSE(world.zormod.files.byNumber[3]);
    EXPECT_EQ(world.screen.maskHides, 1);
    EXPECT_EQ(world.screen.shownCells, 1);
}

TEST(FailureRecovery, TheFilesAndTheProgressFormOfTheOperationAreClosed) {
    for (const bool rowWrite : {true, false}) {
        RecoveryWorld world;
        for (int fileNo = 2; fileNo <= 4; ++fileNo) {
            const Text name = Text(1, static_cast<char16_t>(u'a' + fileNo)) + u".txt";
            world.zormod.files.byNumber[fileNo] = world.files.openRandom(world.zormod.file.programFolder + name);
        }
        world.dialogs.progressOpen = true;
        putStateRight(world.zormod, {FailureKind::file, rowWrite});
        for (int fileNo = 2; fileNo <= 4; ++fileNo) {
            EXPECT_FALSE(world.zormod.files.byNumber[fileNo]) << fileNo;
        }
        EXPECT_FALSE(world.dialogs.progressOpen);
        EXPECT_TRUE(hasTable(world.zormod));
    }
}

TEST(FailureRecovery, AClosedTableIsOpenedAgain) {
    for (const bool rowWrite : {true, false}) {
        RecoveryWorld world;
        world.zormod.files.byNumber[1].reset();
        putStateRight(world.zormod, {FailureKind::file, rowWrite});
        EXPECT_TRUE(hasTable(world.zormod));
    }
}

TEST(FailureRecovery, APositionOutsideTheTableComesBackIntoIt) {
    RecoveryWorld world;
    world.zormod.position.curRecord = 50;
    world.zormod.position.curItem = 9;
    putStateRight(world.zormod, {FailureKind::overflow, false});
    EXPECT_EQ(world.zormod.position.curRecord, 3);
    EXPECT_EQ(world.zormod.position.curItem, 1);
}

TEST(FailureRecovery, ATableThatCantBeReadAnyMoreIsGivenUp) {
    RecoveryWorld world;
    std::remove((world.folder.path() + "/kt.txt").c_str());
    world.dialogs.expectedMessages = 1;
    putStateRight(world.zormod, {FailureKind::file, false});
    EXPECT_FALSE(hasTable(world.zormod));
}

TEST(FailureRecovery, WithoutATableThereIsNothingToRead) {
    TestWorld world;
    putStateRight(world.zormod, {FailureKind::overflow, false});
    EXPECT_FALSE(hasTable(world.zormod));
}
