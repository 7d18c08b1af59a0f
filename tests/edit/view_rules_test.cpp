#include "edit/view_rules.h"

#include "support/test_world.h"

#include <gtest/gtest.h>

TEST(CardTop, StaysWhileTheItemIsAmongElevenRows) {
    EXPECT_EQ(cardTop(0, 0, 60), 0);
    EXPECT_EQ(cardTop(0, 10, 60), 0);
    EXPECT_EQ(cardTop(22, 22, 60), 22);
}

TEST(CardTop, MovesByElevenWhenTheItemLeaves) {
    EXPECT_EQ(cardTop(0, 11, 60), 11);
    EXPECT_EQ(cardTop(11, 10, 60), 0);
    EXPECT_EQ(cardTop(0, 35, 60), 33);
    EXPECT_EQ(cardTop(5, 3, 60), 0);
}

TEST(CardTop, NearTheEndStaysAtTheItemCountLessSeventeen) {
    EXPECT_EQ(cardTop(33, 44, 60), 43);
    EXPECT_EQ(cardTop(43, 60, 60), 43);
    EXPECT_EQ(cardTop(0, 9, 9), 0);
}

namespace {

struct GridWorld : TestWorld {
    GridWorld() { table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}}, {{u"1", u"a"}}); }
    GridShape shape(std::int32_t records = 1) { return gridShape(zormod, records); }
};

} // namespace

TEST(GridShape, AMoveOrATypedCellLeavesIt) {
    GridWorld world;
    const GridShape before = world.shape();
    world.zormod.position.curItem = 1;
    world.zormod.position.windowFirst = 7;
    world.zormod.window.recordWindow[2] = Bytes(recordLength, 'x');
    EXPECT_EQ(world.shape(), before);
}

TEST(GridShape, ItemsRowsWidthsNamesAndRecordsChangeIt) {
    GridWorld world;
    const GridShape before = world.shape();
    EXPECT_NE(world.shape(2), before);
    world.zormod.position.windowRows = 21;
    EXPECT_NE(world.shape(), before);
    world.zormod.position.windowRows = 20;
    world.zormod.items.itemWidth[1] = 7;
    EXPECT_NE(world.shape(), before);
    world.zormod.items.itemWidth[1] = 6;
    world.zormod.items.itemName[1] = u"名前";
    EXPECT_NE(world.shape(), before);
    world.zormod.items.itemName[1] = u"氏名";
    EXPECT_EQ(world.shape(), before);
    world.zormod.items.itemCount = 0;
    EXPECT_NE(world.shape(), before);
}
