#include "structure/cell_shift.h"

#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

/// A row of the items a (2, left), b (4, right), c (3, left), d (4, left).
struct ShiftWorld : TestWorld {
    ShiftWorld() {
        table({{u"a", u"L", 2}, {u"b", u"R", 4}, {u"c", u"L", 3}, {u"d", u"L", 4}}, {{u"12", u"x y", u"z", u"9876"}});
    }
    std::string row() const { return zormod.window.recordWindow[currentSlot(zormod)].substr(0, 13); }
};

} // namespace

TEST(CellShift, RightMovesTheCellsAndBlanksTheCurrentOne) {
    ShiftWorld world;
    world.zormod.position.curItem = 1;
    shiftCellsRight(world.zormod);
    EXPECT_EQ(world.row(), "12    x yz   ");
}

TEST(CellShift, RightTakesTheAlignmentOfTheItemItComesToAndCutsByIt) {
    ShiftWorld world;
    shiftCellsRight(world.zormod);
    EXPECT_EQ(world.row(), "    12x yz   ");
}

TEST(CellShift, LeftClosesTheGapAndBlanksTheLastCell) {
    ShiftWorld world;
    world.zormod.position.curItem = 1;
    shiftCellsLeft(world.zormod);
    EXPECT_EQ(world.row(), "12   z987    ");
}

TEST(CellShift, LeftIntoANarrowerItemKeepsTheFirstBytes) {
    ShiftWorld world;
    shiftCellsLeft(world.zormod);
    EXPECT_EQ(world.row(), "x    z987    ");
}

TEST(CellShift, OnTheLastItemBothBlankIt) {
    for (void (*shift)(ZORMOD&) : {shiftCellsRight, shiftCellsLeft}) {
        ShiftWorld world;
        world.zormod.position.curItem = 3;
        shift(world.zormod);
        EXPECT_EQ(world.row(), "12 x yz      ");
    }
}

TEST(CellShift, NothingGoesToTheDiskBeforeTheRecordIsLeft) {
    ShiftWorld world;
    const std::string before = world.bytesOf("t.txt");
    shiftCellsRight(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    commitRecord(world.zormod);
    EXPECT_EQ(world.bytesOf("t.txt").substr(0, 13), "    12x yz   ");
}
