#include "edit/jumps.h"

#include "edit/edit_world.h"

namespace {

void jump(EditWorld& world, const Text& answer) {
    world.dialogs.texts.push_back(answer);
    mnuJUMP(world.edit);
}

void itemJump(EditWorld& world, const Text& answer) {
    world.dialogs.texts.push_back(answer);
    mnuHJ(world.edit);
}

TEST(Jumps, ARecordJumpAsksUnderItsTitleWithoutADefault) {
    NumberedWorld world(5);
    jump(world, u"3");
    ASSERT_EQ(world.dialogs.questions.size(), 1u);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定記録へ移動");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt),
              "第なん記録に飛びますか？（なお、＋－付きで数値を指定すると、今の記録からの相対指定になります");
    EXPECT_EQ(utf8(world.dialogs.questions[0].defaultText), "");
    EXPECT_EQ(world.record(), 3);
}

TEST(Jumps, PlusThreeOnRecord98Of100IsTheLastRecord) {
    NumberedWorld world(100, {98, 1});
    jump(world, u"+3");
    EXPECT_EQ(world.record(), 100);
    EXPECT_EQ(world.beeper.count, 0);
    EXPECT_EQ(world.cell(1), "n100      ");
    EXPECT_EQ(world.zormod.position.windowFirst, 91);
}

TEST(Jumps, Minus200BeepsAndStays) {
    NumberedWorld world(100, {98, 1});
    world.type(u"new");
    jump(world, u"-200");
    EXPECT_EQ(world.record(), 98);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.typed(), "new");
}

TEST(Jumps, ZeroBeepsAndASmallStepBackMoves) {
    NumberedWorld world(100, {98, 1});
    jump(world, u"0");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.record(), 98);
    jump(world, u"-1");
    EXPECT_EQ(world.record(), 97);
    jump(world, u"0.4");
    EXPECT_EQ(world.beeper.count, 2);
}

TEST(Jumps, FullWidthAnswersAndBlanksRoundThemCount) {
    NumberedWorld world(100);
    jump(world, u" ４２ ");
    EXPECT_EQ(world.record(), 42);
    jump(world, u"＋３");
    EXPECT_EQ(world.record(), 45);
}

TEST(Jumps, ANumberOfAnySizeIsTheLastRecord) {
    NumberedWorld world(10);
    jump(world, u"99999999999");
    EXPECT_EQ(world.record(), 10);
}

TEST(Jumps, GivingUpStaysWithoutABeep) {
    NumberedWorld world(10, {4, 2});
    jump(world, u"");
    itemJump(world, u"");
    EXPECT_EQ(world.record(), 4);
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.beeper.count, 0);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}

TEST(Jumps, AJumpKeepsWhatIsTypedAndWritesTheRow) {
    NumberedWorld world(10, {4, 1});
    world.type(u"new");
    jump(world, u"9");
    EXPECT_EQ(world.onDisk(4), "    new          ");
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}

TEST(Jumps, AJumpEndsTheTaskAndTheIdNumbering) {
    NumberedWorld world(10);
    world.zormod.taskWord = u"srch";
    world.zormod.input.idAutoOn = 1;
    jump(world, u"9");
    EXPECT_EQ(utf8(world.zormod.taskWord), "");
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(utf8(world.edit.Label13), "    ");
}

TEST(Jumps, AJumpLeavesTheChoosingOfATargetAlone) {
    NumberedWorld world(10);
    world.zormod.taskWord = u"moveitem";
    itemJump(world, u"2");
    EXPECT_EQ(utf8(world.zormod.taskWord), "moveitem");
}

TEST(Jumps, AJumpInAnEmptyFileStaysOnRecordOne) {
    EditWorld world;
    world.people({});
    jump(world, u"5");
    EXPECT_EQ(world.record(), 1);
    mnuEXTD(world.edit);
    EXPECT_EQ(world.record(), 1);
}

TEST(Jumps, AJumpSaysTheRecordBeforeTheItemNumberHasChanged) {
    NumberedWorld world(10, {9, 2}, 2);
    mnuHOME(world.edit);
    EXPECT_EQ(world.takeSpoken(), Spoken{"n1 ､  ｷﾞｮｳ1 ｺｳﾓｸ2 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(utf8(world.edit.txtItemnum.text()), "1");
}

TEST(Jumps, AnItemJumpAsksUnderItsTitle) {
    NumberedWorld world(5);
    itemJump(world, u"2");
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定項目へ移動");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt),
              "どの項目に飛びますか？項目番号を!なお、ﾌﾟﾗｽまたはﾏｲﾅｽ符号付きで数値を指定すると、今の項目からの相対指定に"
              "なります");
    EXPECT_EQ(world.item(), 2);
}

TEST(Jumps, AnItemJumpStopsAtTheEndsAndNeverBeeps) {
    NumberedWorld world(5);
    itemJump(world, u"999");
    EXPECT_EQ(world.item(), 2);
    itemJump(world, u"-9");
    EXPECT_EQ(world.item(), 0);
    itemJump(world, u"99999");
    EXPECT_EQ(world.item(), 2);
    itemJump(world, u"-1");
    EXPECT_EQ(world.item(), 1);
    itemJump(world, u"－１");
    EXPECT_EQ(world.item(), 0);
    itemJump(world, u"-99999");
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(Jumps, AnItemJumpPutsWhatIsTypedInTheRowAndNotOnTheDisk) {
    NumberedWorld world(5, {2, 1});
    world.type(u"new");
    itemJump(world, u"2");
    EXPECT_EQ(world.cell(1), "new       ");
    EXPECT_EQ(world.onDisk(2), "    n2           ");
    EXPECT_EQ(world.typed(), "");
}

TEST(Jumps, TheEdgesOfTheFileCommitAndEndTheNumbering) {
    NumberedWorld world(50, {25, 1});
    world.type(u"down");
    world.zormod.input.idAutoOn = 1;
    EXPECT_EQ(world.press(ctrlKey(Key::down)), KeyOutcome::taken);
    EXPECT_EQ(world.record(), 50);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.onDisk(25), "    down         ");
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.cell(1), "n50       ");
    world.type(u"up");
    world.zormod.input.idAutoOn = 1;
    world.press(ctrlKey(Key::up));
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(world.onDisk(50), "    up           ");
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.cell(1), "n1        ");
}

TEST(Jumps, TheLastRecordCountsTheRowJustTyped) {
    NumberedWorld world(2, {3, 1});
    world.type(u"new");
    mnuEXTD(world.edit);
    EXPECT_EQ(world.record(), 3);
    EXPECT_EQ(world.recordsOnDisk(), 3u);
}

TEST(Jumps, CtrlLeftDoesNotWriteTheRecordAndCtrlRightDoes) {
    NumberedWorld world(5, {2, 2});
    world.type(u"44");
    world.press(ctrlKey(Key::left));
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.cell(2), " 44");
    EXPECT_EQ(world.onDisk(2), "    n2           ");
    world.type(u"new");
    world.press(ctrlKey(Key::right));
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.onDisk(2), "    new        44");
}

TEST(Jumps, CtrlRightWithNothingTypedLeavesTheDiskAlone) {
    NumberedWorld world(5, {2, 0});
    commitCell(world.zormod, u"id");
    world.press(ctrlKey(Key::right));
    EXPECT_EQ(world.onDisk(2, 4), "    ");
}

TEST(Jumps, HomeIsRecordOneItemOne) {
    NumberedWorld world(50, {25, 2});
    world.type(u"5");
    mnuHOME(world.edit);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(world.onDisk(25), "    n25         5");
}

TEST(Jumps, ATableWithoutItemsHasItsFirstItemAtZero) {
    EditWorld world;
    world.table({{u"ID", u"L", 20}}, {{u"a"}, {u"b"}});
    world.show();
    mnuHOME(world.edit);
    EXPECT_EQ(world.item(), 0);
    mnuEXTL(world.edit);
    EXPECT_EQ(world.item(), 0);
    mnuCTRLP(world.edit);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(utf8(world.edit.Text1), "0");
}

TEST(Jumps, CtrlPGoesToItemOneOfTheNextRecordAndKeepsWhatIsTyped) {
    NumberedWorld world(5, {2, 2});
    world.type(u"7");
    mnuCTRLP(world.edit);
    EXPECT_EQ(world.record(), 3);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.onDisk(2), "    n2          7");
}

TEST(Jumps, PagesGoByTheRowsOfTheWindow) {
    NumberedWorld world(100, {50, 1});
    world.zormod.input.idAutoOn = 1;
    world.type(u"new");
    EXPECT_EQ(world.press(Key::pageDown), KeyOutcome::taken);
    EXPECT_EQ(world.record(), 70);
    EXPECT_EQ(world.onDisk(50), "    new          ");
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.cell(1), "n70       ");
    world.press(Key::pageUp);
    EXPECT_EQ(world.record(), 50);
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(Jumps, PagesBeepAtTheEdgesAndStandOnThem) {
    NumberedWorld world(100, {20, 1});
    world.press(Key::pageUp);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.beeper.count, 1);
    world.stand(81, 1);
    world.press(Key::pageDown);
    EXPECT_EQ(world.record(), 100);
    EXPECT_EQ(world.beeper.count, 1);
    world.stand(80, 1);
    world.press(Key::pageDown);
    EXPECT_EQ(world.record(), 100);
    EXPECT_EQ(world.beeper.count, 0);
    world.stand(101, 1);
    world.press(Key::pageDown);
    EXPECT_EQ(world.record(), 100);
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(Jumps, APageUpThatEndsOnTheFirstRecordDoesNotBeep) {
    NumberedWorld world(100, {21, 1});
    world.press(Key::pageUp);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(Jumps, APageWritesARowThatEnterHasChanged) {
    NumberedWorld world(100, {50, 1});
    world.type(u"new");
    world.enter();
    world.press(Key::pageUp);
    EXPECT_EQ(world.onDisk(50), "    new          ");
}

TEST(Jumps, CtrlTCommitsNothingAndDropsWhatIsTyped) {
    NumberedWorld world(5, {2, 1});
    world.type(u"new");
    EXPECT_EQ(world.press(ctrlKey(Key::t)), KeyOutcome::taken);
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.cell(1), "n2        ");
    EXPECT_EQ(world.beeper.count, 0);
    world.press(ctrlKey(Key::t));
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(Jumps, CtrlShiftTGoesBackToTheIdAndBeepsThere) {
    NumberedWorld world(5, {2, 1});
    world.type(u"new");
    world.press(ctrlShiftKey(Key::t));
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.cell(1), "n2        ");
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.beeper.count, 0);
    world.press(ctrlShiftKey(Key::t));
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(Jumps, WithoutATableEveryJumpBeepsAndAsksNothing) {
    EditWorld world;
    mnuJUMP(world.edit);
    mnuHJ(world.edit);
    mnuEXTD(world.edit);
    mnuEXTTOP(world.edit);
    mnuEXTR(world.edit);
    mnuEXTL(world.edit);
    mnuHOME(world.edit);
    mnuCTRLP(world.edit);
    pageUp(world.edit);
    pageDown(world.edit);
    stepItemForward(world.edit);
    stepItemBack(world.edit);
    EXPECT_EQ(world.beeper.count, 12);
    EXPECT_TRUE(world.dialogs.questions.empty());
}

} // namespace
