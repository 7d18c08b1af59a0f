// The rules of the pair and of the folder with an offence planted, and with the nearest thing that is allowed.

#include "support/test_world.h"
#include "tests/monkey/made_seen.h"
#include "tests/monkey/pair_rules.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

Complaint pair(const Seen& seen) {
    return pairIsWhole(testCodePage(), seen);
}

void makeFile(const std::filesystem::path& path) {
    std::ofstream(path, std::ios::binary) << "x";
}

} // namespace

TEST(PairRules, APositionLiesInTheTable) {
    EXPECT_FALSE(positionFits(madeSeen()));
    Seen seen = madeSeen();
    seen.position.curRecord = 6;
    EXPECT_FALSE(positionFits(seen)) << "the row behind the last";
    seen.position.curRecord = 7;
    EXPECT_TRUE(positionFits(seen));
    seen = madeSeen();
    seen.position.curItem = 4;
    EXPECT_TRUE(positionFits(seen));
    seen = madeSeen();
    seen.position.windowFirst = 3;
    EXPECT_TRUE(positionFits(seen)) << "outside the window";
}

TEST(PairRules, ADataFileHasWholeRecords) {
    Seen seen = madeSeen();
    seen.records += '\n';
    EXPECT_TRUE(positionFits(seen));
}

TEST(PairRules, TheItemFileSaysTheItemsInUse) {
    EXPECT_FALSE(pair(madeSeen()));
    for (const std::vector<int>& widths : {std::vector{4, 6, 2, 9}, std::vector{4, 6, 2}, std::vector{4, 6, 2, 8, 1}}) {
        Seen seen = madeSeen();
        seen.itemTable = madeItems(widths);
        EXPECT_TRUE(pair(seen)) << widths.size() << " items";
    }
    Seen seen = madeSeen();
    seen.itemTable.itemName[2] = u"他";
    EXPECT_TRUE(pair(seen));
    seen.taskWord = u"chfln";
    EXPECT_FALSE(pair(seen)) << "widths that are being tried stand in no file yet";
}

TEST(PairRules, TheItemsFitIntoARecord) {
    Seen seen = madeSeen();
    setItems(seen, madeItems({4, 200, 42, 8}));
    EXPECT_FALSE(pair(seen));
    setItems(seen, madeItems({4, 200, 43, 8}));
    EXPECT_TRUE(pair(seen));
    setItems(seen, madeItems({4, 6, 2, 8}));
    seen.itemTable.itemStart[2] = 12;
    EXPECT_TRUE(pair(seen));
}

TEST(PairRules, TheWidthsOfTheFileTakeThePlaceOfTriedOnes) {
    Seen seen = madeSeen();
    seen.itemTable = madeItems({4, 7, 2, 8});
    takeWidthsOfTheFile(seen);
    EXPECT_EQ(seen.itemTable.itemWidth[1], 6);
    EXPECT_EQ(seen.itemTable.itemStart[2], 11);
}

TEST(PairRules, NothingIsLeftBehind) {
    for (const char* name : {".new-t.txt", ".new-Kt.txt", ".new-ZORCLip", ".swap-t.txt", ".change-t.txt",
                             ".unused-swap-t.txt", ".unused-change-t.txt", ".romika-work",
                             ".romika-0123456789abcdef01234567", "WORK.QQQ", "Kwork.qqq", "Work.Qqq"}) {
        const TemporaryFolder folder;
        makeFile(folder.path() + "/t.txt");
        EXPECT_FALSE(nothingIsLeftBehind(folder.path()));
        makeFile(folder.path() + "/" + name);
        EXPECT_TRUE(nothingIsLeftBehind(folder.path())) << name;
    }
}

TEST(PairRules, AFolderBelowIsLookedAtToo) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() + "/below");
    makeFile(folder.path() + "/below/.new-t.txt");
    EXPECT_TRUE(nothingIsLeftBehind(folder.path()));
}

TEST(PairRules, HiddenNamesOfTheUserStay) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() + "/.mine");
    makeFile(folder.path() + "/.mine.txt");
    makeFile(folder.path() + "/K.mine.txt");
    EXPECT_FALSE(nothingIsLeftBehind(folder.path()));
}
