#include "edit/edit_world.h"

namespace {

TEST(InputBox, CtrlDBlanksTheCellAndGoesOn) {
    EditWorld world;
    world.people({{u"1", u"山田", u"30"}}, 1);
    world.stand(1, 1);
    world.type(u"x");
    world.later();
    world.takeSpoken();
    world.box.mnuCTRLD();
    EXPECT_EQ(world.cell(1), "          ");
    EXPECT_EQ(world.cell(2), " 30");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(utf8(world.edit.undoCell), "山田");
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.takeSpoken(), Spoken{"30､"});
}

TEST(InputBox, CtrlDAtTheVeryEndLeavesNothingInTheBox) {
    EditWorld world;
    world.people({{u"1", u"山田", u"30"}});
    world.stand(2, 2);
    world.type(u"x");
    world.box.mnuCTRLD();
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.cell(2), "   ");
}

TEST(InputBox, CtrlUBringsTheCellIntoTheBox) {
    EditWorld world;
    world.people({{u"1", u"山田", u"30"}}, 1);
    world.stand(1, 1);
    world.box.mnuCTRLU();
    EXPECT_EQ(world.typed(), "山田");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::txtinputbox]), "山田");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.takeSpoken(), Spoken{"山田､データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
    world.later();
    world.type(u"様");
    EXPECT_EQ(world.takeSpoken(), Spoken{"様 ざん4バイト"});
    world.enter();
    EXPECT_EQ(world.cell(1), "山田様    ");
}

TEST(InputBox, CtrlUOnACellThatFillsItsItemGoesOn) {
    EditWorld world;
    world.people({{u"1", u"0123456789", u"30"}});
    world.stand(1, 1);
    world.box.mnuCTRLU();
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.cell(1), "0123456789");
}

} // namespace
