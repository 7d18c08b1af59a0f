#include "edit/status_update.h"

#include "edit/edit_world.h"
#include "edit/movement.h"
#include "sheet/record_window.h"

namespace {

TEST(StatusUpdate, ThePanelShowsTheCurrentCell) {
    EditWorld world;
    world.people({{u"A1", u"山田", u"30"}, {u"B2", u"佐藤", u"41"}});
    world.stand(2, 1);
    EXPECT_EQ(utf8(world.screen.fields[PanelField::txtREC]), " 2");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::Text1]), "2");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::Label13]), "B2  ");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::txtItemnum]), "1");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::RichTextBox1]), "氏名");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::txtWIDTH]), "10");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::txtLR]), "L");
    EXPECT_EQ(world.screen.inputBoxWidth, 10);
    EXPECT_EQ(utf8(world.screen.fields[PanelField::RichTextBox2]), "memo");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::Label11]), "全項目");
}

TEST(StatusUpdate, ChosenItemsAreListedEachWithAComma) {
    NumberedWorld world(3);
    world.zormod.input.allItemsInput = 0;
    world.zormod.items.itemInputMark[0] = 1;
    world.zormod.items.itemInputMark[2] = 1;
    showCurrentCell(world.edit);
    EXPECT_EQ(utf8(world.edit.Label11), "0,2,");
}

TEST(StatusUpdate, TheIdNumberingStandsInFrontOfTheId) {
    EditWorld world;
    world.people({{u"A1"}});
    world.zormod.input.idAutoOn = 1;
    showCurrentCell(world.edit);
    EXPECT_EQ(utf8(world.edit.Label13), "(自動更新！)A1  ");
    world.zormod.input.idAutoOn = 0;
    showCurrentCell(world.edit);
    EXPECT_EQ(utf8(world.edit.Label13), "A1  ");
}

TEST(StatusUpdate, AnEmptiedBoxLeavesTheCellInTheEcho) {
    NumberedWorld world(3);
    world.type(u"ab");
    ASSERT_TRUE(world.screen.echoTyping);
    refreshCurrentCell(world.edit);
    EXPECT_TRUE(world.screen.echoTyping) << "what is typed is still being typed";
    showCurrentCell(world.edit);
    EXPECT_FALSE(world.screen.echoTyping);
}

TEST(StatusUpdate, AnOpenedTableHasLabelsOfItsOwnAndSaysNothing) {
    EditWorld world;
    world.makeTable("t.txt", {{u"ID", u"L", 4}, {u"a", u"L", 4}}, {{u"1"}});
    world.openTable("t.txt");
    world.zormod.speech.speechMode = 2;
    showOpenedTable(world.edit);
    EXPECT_EQ(utf8(world.edit.Label11), "全項目(0～1)");
    EXPECT_EQ(utf8(world.edit.Label8), "字数制限:項目幅");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.takeSpoken(), Spoken());
    EXPECT_EQ(world.zormod.speech.speechMode, 2);
    world.zormod.input.inputLimit = 4;
    showOpenedTable(world.edit);
    EXPECT_EQ(utf8(world.edit.Label8), "制限字数:4");
}

TEST(StatusUpdate, ATableWithoutItemsShowsTheIdAlone) {
    EditWorld world;
    world.table({{u"ID", u"L", 20}}, {{u"a"}});
    world.show();
    EXPECT_EQ(utf8(world.edit.Text1), "0");
    EXPECT_EQ(utf8(world.edit.txtItemnum.text()), "0");
}

TEST(StatusUpdate, AFileWithoutRecordsShowsRecordOne) {
    EditWorld world;
    world.people({});
    EXPECT_EQ(utf8(world.edit.txtREC.text()), " 1");
    EXPECT_EQ(utf8(world.edit.Label13), "    ");
}

TEST(StatusUpdate, ARecordMoveSaysDataFirstThenItsPlace) {
    EditWorld world;
    world.people({{u"1", u"山田", u"30"}, {u"2", u"佐藤", u"41"}}, 2);
    world.stand(1, 1);
    world.press(Key::down);
    EXPECT_EQ(world.takeSpoken(), Spoken{"佐藤 ､  ｷﾞｮｳ2 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(StatusUpdate, ARecordMoveWithDataOnlySaysTheData) {
    EditWorld world;
    world.people({{u"1", u"山田", u"30"}, {u"2", u"佐藤", u"41"}}, 1);
    world.stand(1, 1);
    world.press(Key::down);
    EXPECT_EQ(world.takeSpoken(), Spoken{"佐藤 ､"});
}

TEST(StatusUpdate, AnItemMoveSaysTheItemWithoutTheBlankInFront) {
    EditWorld world;
    world.people({{u"1", u"山田", u"30"}}, 2);
    world.press(Key::right);
    EXPECT_EQ(world.takeSpoken(), Spoken{"山田､  ｷﾞｮｳ1 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
    world.later();
    world.zormod.speech.speechMode = 1;
    world.press(Key::right);
    EXPECT_EQ(world.takeSpoken(), Spoken{"30､"});
}

TEST(StatusUpdate, AnEmptyCellIsBlankByName) {
    EditWorld world;
    world.people({{u"1"}}, 1);
    world.press(Key::right);
    EXPECT_EQ(world.takeSpoken(), Spoken{"ﾌﾞﾗﾝｸ､"});
}

TEST(StatusUpdate, WithSpeechOffNothingIsSaid) {
    NumberedWorld world(3);
    world.press(Key::down);
    world.press(Key::right);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(StatusUpdate, AHeldKeySpeaksOnceInTheInhibitTimeAndTheLastCellMayGoUnread) {
    NumberedWorld world(30, {1, 1}, 1);
    for (int repeat = 0; repeat < 10; ++repeat) {
        world.down(plainKey(Key::down));
        world.clock.now += 0.0625;
    }
    world.up(plainKey(Key::down));
    EXPECT_EQ(world.record(), 11);
    // Four repeats are the first to take more than 0.2 s.
    EXPECT_EQ(world.takeSpoken(), (Spoken{"n2 ､", "n6 ､", "n10 ､"}));
}

TEST(StatusUpdate, EmptyingTheBoxIsNotSpokenEvenWhereNoMoveIs) {
    NumberedWorld world(3, {1, 1}, 1);
    world.type(u"abc");
    world.forget();
    world.press(Key::pageUp);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(StatusUpdate, OnlyTheBoxThatReallyChangesSpeaks) {
    NumberedWorld world(3, {1, 0}, 1);
    showCurrentCell(world.edit);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(StatusUpdate, TheFocusAfterARecordMoveKeepsQuietOnce) {
    NumberedWorld world(3, {1, 0}, 1);
    world.press(Key::down);
    EXPECT_EQ(world.edit.readingState, ReadingState::focusPassed);
    world.takeSpoken();
    world.later();
    inputBoxGotFocus(world.edit);
    EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(StatusUpdate, AMoveThatWasNotHeardDoesNotKeepTheNextFocusQuiet) {
    NumberedWorld world(3, {1, 0}, 1);
    world.zormod.speech.lastSpokenTime = world.clock.now;
    world.press(Key::down);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.takeSpoken(), Spoken());
    EXPECT_EQ(world.edit.readingState, ReadingState::none);
    world.later();
    inputBoxGotFocus(world.edit);
    EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(StatusUpdate, AfterAnItemMoveTheStateIsNoneAgain) {
    NumberedWorld world(3, {1, 0}, 1);
    world.press(Key::right);
    EXPECT_EQ(world.edit.readingState, ReadingState::none);
}

TEST(StatusUpdate, TheFocusOfTheBoxSaysItsTextAndName) {
    NumberedWorld world(3, {1, 0}, 1);
    world.type(u"ab");
    world.takeSpoken();
    world.later();
    world.edit.previousInputText = u"something older";
    inputBoxGotFocus(world.edit);
    EXPECT_EQ(world.takeSpoken(), Spoken{"ab､データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(utf8(world.edit.previousInputText), "ab");
}

TEST(StatusUpdate, TheFocusGoesOnToTheFormThatChoosesARangeOrTarget) {
    NumberedWorld world(3, {1, 0}, 1);
    for (const TextView word : {u"HTYU", u"copy", u"move", u"moveitem"}) {
        world.zormod.taskWord = Text(word);
        inputBoxGotFocus(world.edit);
        world.later();
    }
    EXPECT_EQ(world.commandsRun(), (Spoken{"focusRangeBox", "focusPointerBox", "focusPointerBox"}));
    EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(StatusUpdate, TheViewStaysBehindUnderSomeTasks) {
    for (const TextView word :
         {u"chfln", u"moveitem", u"move", u"moverecord", u"copy", u"srch", u"narabekaef", u"HTYU"}) {
        EXPECT_FALSE(viewComesForward(Text(word))) << utf8(word);
    }
    EXPECT_TRUE(viewComesForward(u""));
    EXPECT_TRUE(viewComesForward(u"insertrecord"));
}

TEST(StatusUpdate, ABulkOperationEndsInIt) {
    NumberedWorld world(3);
    world.zormod.position.curRecord = 3;
    refreshAfterBulk(world.zormod, 0);
    EXPECT_EQ(utf8(world.edit.txtREC.text()), " 3");
    EXPECT_EQ(utf8(world.screen.title),
              utf8(u"ロミカ (" + world.zormod.file.fileDrive + u":" + world.zormod.file.fileName + u"/記録数:3)"));
}

TEST(StatusUpdate, WithoutATableShowingTheCellDoesNothing) {
    EditWorld world;
    showCurrentCell(world.edit);
    EXPECT_EQ(world.screen.redraws, 0);
    EXPECT_EQ(utf8(world.edit.txtREC.text()), "");
}

TEST(StatusUpdate, FieldsAreShownOnlyWhenTheyDiffer) {
    NumberedWorld world(3);
    showCurrentCell(world.edit);
    world.screen.fields.clear();
    showCurrentCell(world.edit);
    ASSERT_EQ(world.screen.fields.size(), 1U) << "nothing but the empty box, which forgets what was typed elsewhere";
    EXPECT_EQ(utf8(world.screen.fields.at(PanelField::txtinputbox)), "");
    setPanelText(world.edit, PanelField::Label8, u"x");
    EXPECT_EQ(utf8(world.screen.fields[PanelField::Label8]), "x");
}

} // namespace
