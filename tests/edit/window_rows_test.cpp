#include "edit/window_rows.h"

#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

struct TenRecords : TestWorld {
    TenRecords() {
        std::vector<std::vector<std::u16string_view>> records(10, {u"1", u"old"});
        table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}}, records);
    }
};

} // namespace

TEST(WindowRows, WithoutATableOnlyTheNumberIsTaken) {
    TestWorld world;
    useWindowRows(world.zormod, 33);
    EXPECT_EQ(world.zormod.position.windowRows, 33);
}

TEST(WindowRows, TheCurrentRowStandsInTheMiddleOfTheNewWindow) {
    TenRecords world;
    world.zormod.position.curRecord = 8;
    useWindowRows(world.zormod, 4);
    EXPECT_EQ(world.zormod.position.windowRows, 4);
    EXPECT_EQ(world.zormod.position.windowFirst, 7);
}

TEST(WindowRows, WhatIsTypedIntoTheRowIsKeptAndNotWritten) {
    TenRecords world;
    refillWindow(world.zormod, 3);
    world.zormod.position.curRecord = 3;
    world.zormod.position.curItem = 1;
    commitCell(world.zormod, u"new");
    const std::string before = world.bytesOf("t.txt");
    useWindowRows(world.zormod, 5);
    EXPECT_EQ(getCell(world.zormod, 1), u"new   ");
    EXPECT_EQ(world.bytesOf("t.txt"), before);
}
