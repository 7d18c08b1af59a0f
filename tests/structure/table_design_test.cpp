#include "structure/design_world.h"

namespace {
using testing::ElementsAre;

const std::vector<TestWorld::Item> meibo = {{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 3}};

TEST(TableDesign, ANewTableHasItem0AloneAndTheProgramFolderBeforeAnyTable) {
    DesignWorld world;
    TableDesign& design = world.newDesign();
    EXPECT_EQ(design.mode, DesignMode::newTable);
    EXPECT_THAT(design.rows, ElementsAre(DesignRow{}));
    EXPECT_EQ(design.text1, u"0");
    EXPECT_EQ(design.text2, u"");
    EXPECT_EQ(design.text3, world.zormod.file.programFolder);
    EXPECT_EQ(design.references.path() + u"\\", world.zormod.file.programFolder);
}

TEST(TableDesign, TheOpenTableIsShownWithItsPathMemoAndItems) {
    DesignWorld world;
    world.table(meibo, {});
    TableDesign& design = world.change();
    EXPECT_EQ(design.mode, DesignMode::change);
    EXPECT_THAT(design.rows, ElementsAre(DesignRow{u"ID", u"L", u"3"}, DesignRow{u"氏名", u"L", u"10"},
                                         DesignRow{u"年齢", u"R", u"3"}));
    EXPECT_EQ(design.text1, u"2");
    EXPECT_EQ(design.text2, u"memo");
    EXPECT_EQ(design.text3, world.zormod.file.programFolder + u"t.txt");
    EXPECT_EQ(design.itemin, u"ID");
}

TEST(TableDesign, ACsvFileBringsItsItemsAndItsNameWithoutExtension) {
    DesignWorld world;
    world.zormod.otherItems.itemCount = 1;
    world.zormod.otherItems.itemName[1] = u"項目1";
    world.zormod.otherItems.itemAlign[1] = u"L";
    world.zormod.otherItems.itemWidth[1] = 7;
    world.zormod.file.otherFileDrive = u"c";
    world.zormod.file.otherFileName = u"\\a.b\\売上.csv";
    TableDesign& design = world.open(u"SVCread");
    EXPECT_EQ(design.mode, DesignMode::csv);
    EXPECT_EQ(design.text3, u"c:\\a.b\\売上");
    EXPECT_EQ(design.rows.at(1), (DesignRow{u"項目1", u"L", u"7"}));
}

TEST(TableDesign, TheItemCountOfTheOpenTableFollowsTheGridAndItsCellsStayReadable) {
    DesignWorld world;
    world.table(meibo, {{u"1", u"山田", u"40"}});
    TableDesign& design = world.change();
    resizeDesign(design, 5);
    EXPECT_EQ(world.zormod.items.itemCount, 5);
    EXPECT_EQ(design.text1, u"5");
    EXPECT_EQ(design.rows.back(), DesignRow{});
    EXPECT_EQ(world.zormod.items.itemStart[5], 17);
    EXPECT_EQ(world.zormod.items.itemWidth[5], 0);
}

TEST(TableDesign, AShrinkingGridKeepsTheCellInHandInside) {
    DesignWorld world;
    world.table(meibo, {});
    TableDesign& design = world.change();
    standOnDesignCell(design, 2, DesignColumn::width);
    resizeDesign(design, 1);
    EXPECT_EQ(design.row, 1);
    EXPECT_EQ(design.itemin, u"10");
}

} // namespace
