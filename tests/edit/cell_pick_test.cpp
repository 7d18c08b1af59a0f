#include "edit/cell_pick.h"

#include "edit/input_box.h"
#include "edit/status_update.h"
#include "sheet/cell.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

struct PickWorld : TestWorld {
    PickWorld() {
        table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}, {u"年齢", u"R", 4}},
              {{u"1", u"a", u"10"}, {u"2", u"b", u"20"}, {u"3", u"c", u"30"}});
        connectPositionBoxes(edit);
        showOpenedTable(edit);
        zormod.speech.speechMode = 1;
        takeSpoken();
        later();
    }
    std::pair<int, int> place() const { return {zormod.position.curRecord, zormod.position.curItem}; }
    EditScreen edit{zormod};
    InputBox box{edit};
};

} // namespace

TEST(CellPick, AClickMakesTheCellCurrentAndReadsItOnce) {
    PickWorld world;
    pickCell(world.edit, 3, 2);
    EXPECT_EQ(world.place(), std::pair(3, 2));
    EXPECT_THAT(world.takeSpoken(), ElementsAre(HasSubstr("30")));
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}

TEST(CellPick, AnotherItemOfTheSameRecordIsReadToo) {
    PickWorld world;
    pickCell(world.edit, 1, 1);
    EXPECT_EQ(world.place(), std::pair(1, 1));
    EXPECT_THAT(world.takeSpoken(), ElementsAre(HasSubstr("a")));
}

TEST(CellPick, WhatIsTypedGoesIntoTheOldCellAndToTheDisk) {
    PickWorld world;
    pickCell(world.edit, 1, 1);
    world.box.change(u"new");
    pickCell(world.edit, 2, 2);
    EXPECT_EQ(world.place(), std::pair(2, 2));
    EXPECT_EQ(getRecordCell(world.zormod, 1, 1), u"new   ");
    EXPECT_EQ(trimmed(getCell(world.zormod, 2)), u"20");
    EXPECT_EQ(world.edit.txtinputbox.text(), u"");
}

TEST(CellPick, BehindTheEndOfTheFileItBeepsAndStays) {
    PickWorld world;
    world.box.change(u"x");
    pickCell(world.edit, 4, 1);
    EXPECT_EQ(world.place(), std::pair(1, 0));
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.edit.txtinputbox.text(), u"x");
}

TEST(CellPick, ANewRecordIsPickedWhileTheUserStandsOnIt) {
    PickWorld world;
    world.zormod.position.curRecord = 4;
    pickCell(world.edit, 4, 2);
    EXPECT_EQ(world.place(), std::pair(4, 2));
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(CellPick, AFixedRangeIsGivenUpAndTheClickDoesNothingElse) {
    PickWorld world;
    world.zormod.selection = {1, 1, 2, 1, 2};
    pickCell(world.edit, 3, 2);
    EXPECT_EQ(world.place(), std::pair(1, 0));
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.selection.selRecordTo, 0);
    EXPECT_EQ(world.screen.maskHides, 1);
}

TEST(CellPick, WhileKeysChooseARangeOrATargetClicksAreIgnored) {
    for (const auto* word : {u"HTYU", u"copy", u"move", u"moveitem", u"moverecord"}) {
        PickWorld world;
        world.zormod.taskWord = word;
        pickCell(world.edit, 2, 1);
        EXPECT_EQ(world.place(), std::pair(1, 0));
        EXPECT_THAT(world.takeSpoken(), IsEmpty());
    }
}

TEST(CellPick, WithoutATableNothingHappens) {
    TestWorld world;
    EditScreen edit(world.zormod);
    pickCell(edit, 1, 0);
    EXPECT_EQ(world.screen.focusCalls, 0);
    EXPECT_EQ(world.beeper.count, 0);
}
