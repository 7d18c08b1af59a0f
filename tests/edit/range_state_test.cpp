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
