#include "edit/range_state.h"

#include "support/test_world.h"

#include <gtest/gtest.h>

TEST(RangeState, OnlyDrawingAndTargetingCountAsChoosing) {
    for (const char16_t* word : {u"HTYU", u"copy", u"move", u"moveitem", u"moverecord"}) {
        EXPECT_TRUE(isBeingChosen(word)) << utf8(word);
    }
    for (const char16_t* word : {u"", u"moveiten", u"KE", u"work", u"chfln"}) {
        EXPECT_FALSE(isBeingChosen(word)) << utf8(word);
    }
}

TEST(RangeState, ADroppedRangeLeavesNoEndsAndNoMask) {
    TestWorld world;
    world.zormod.selection = {2, 3, 4, 5, 6};
    dropRange(world.zormod);
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.zormod.selection.selRecordTo, 0);
    EXPECT_EQ(world.screen.maskHides, 1);
}

TEST(RangeState, ARangeIsPaintedInTheColourOfItsKindWithItsEndsInOrder) {
    TestWorld world;
    world.table({{u"ID", u"L", 4}, {u"a", u"L", 4}, {u"b", u"L", 4}}, {{u"1"}, {u"2"}, {u"3"}});
    world.zormod.selection = {1, 3, 2, 2, 1};
    paintRange(world.zormod);
    ASSERT_EQ(world.screen.masks.count(MaskKind::block), 1u);
    const CellRange& mask = world.screen.masks[MaskKind::block];
    EXPECT_EQ(mask.firstRecord, 2);
    EXPECT_EQ(mask.lastRecord, 3);
    EXPECT_EQ(mask.firstItem, 1);
    EXPECT_EQ(mask.lastItem, 2);
    EXPECT_EQ(world.zormod.selection.selRecordFrom, 3);
    for (const std::int16_t kind : {2, 3}) {
        world.screen.masks.clear();
        world.zormod.selection.selectionKind = kind;
        paintRange(world.zormod);
        EXPECT_EQ(world.screen.masks.count(MaskKind::wholes), 1u);
        EXPECT_EQ(world.screen.masks.count(MaskKind::block), 0u);
    }
    world.screen.masks.clear();
    world.zormod.selection = {};
    paintRange(world.zormod);
    EXPECT_TRUE(world.screen.masks.empty());
}

TEST(RangeState, PaintingCutsTheEndsToTheTable) {
    TestWorld world;
    world.table({{u"ID", u"L", 4}, {u"a", u"L", 4}}, {{u"1"}, {u"2"}});
    world.zormod.selection = {1, 2, 3, 1, 7};
    paintRange(world.zormod);
    EXPECT_EQ(world.zormod.selection.selRecordTo, 2);
    EXPECT_EQ(world.zormod.selection.selItemTo, 1);
    EXPECT_EQ(world.screen.masks[MaskKind::block].lastRecord, 2);
    EXPECT_EQ(world.screen.masks[MaskKind::block].lastItem, 1);
}

TEST(RangeState, ARangeOnAnEmptyFileIsRecordOne) {
    TestWorld world;
    world.table({{u"ID", u"L", 4}}, {});
    world.zormod.selection = {3, 1, 0, 0, 0};
    paintRange(world.zormod);
    EXPECT_EQ(world.zormod.selection.selRecordFrom, 1);
    EXPECT_EQ(world.zormod.selection.selRecordTo, 1);
    EXPECT_EQ(world.screen.masks[MaskKind::wholes].lastRecord, 1);
}

TEST(RangeState, ARangeThatIsDroppedWhileItIsChosenClosesItsForms) {
    for (const char16_t* word : {u"HTYU", u"copy", u"moverecord"}) {
        TestWorld world;
        world.forms.open(u"frmHANI");
        world.forms.open(u"frmMSSG");
        world.zormod.taskWord = word;
        dropRange(world.zormod);
        EXPECT_EQ(world.zormod.taskWord, Text());
        EXPECT_FALSE(world.forms.isLoaded(u"frmHANI"));
        EXPECT_FALSE(world.forms.isLoaded(u"frmMSSG"));
    }
    TestWorld other;
    other.zormod.taskWord = u"srch";
    dropRange(other.zormod);
    EXPECT_EQ(utf8(other.zormod.taskWord), "srch");
}
