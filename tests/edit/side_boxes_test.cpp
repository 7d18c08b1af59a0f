#include "edit/side_boxes.h"

#include "edit/table_memo.h"

#include "edit/box_labels.h"
#include "edit/edit_world.h"

namespace {

/// Types a whole new text into a side box and lets Enter take it.
void enterNumber(EditWorld& world, PanelField field, const Text& text) {
    sideBoxKeyDown(world.edit, field, plainKey(Key::other));
    sideBoxTyped(world.edit, field, text);
    world.forget();
    sideBoxKeyDown(world.edit, field, plainKey(Key::enter));
    EXPECT_EQ(sideBoxKeyPress(world.edit, field, u'\r'), KeyOutcome::taken);
}

BoxView boxOf(const Text& text) {
    const int end = static_cast<int>(text.size());
    return {.text = text, .caret = end, .selectionStart = end, .selectionLength = 0};
}

TEST(SideBoxes, TheirNamesHoldTheWordForATextBox) {
    EXPECT_EQ(utf8(sideBoxLabel(PanelField::txtREC)), "行番号ﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(utf8(sideBoxLabel(PanelField::txtItemnum)), "こうもく番号ﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(utf8(sideBoxLabel(PanelField::txtWIDTH)), "項目幅ﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(utf8(sideBoxLabel(PanelField::txtLR)), "さゆう配置ﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(utf8(sideBoxLabel(PanelField::Text1)), "項目数ﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(utf8(sideBoxLabel(PanelField::txtinputbox)), "データ入力ﾃｷｽﾄﾎﾞｯｸｽ");
}

TEST(SideBoxes, TheFocusSaysTextAndName) {
    NumberedWorld world(12, {12, 2}, 1);
    sideBoxGotFocus(world.edit, PanelField::txtREC);
    world.later();
    sideBoxGotFocus(world.edit, PanelField::txtWIDTH);
    world.later();
    sideBoxGotFocus(world.edit, PanelField::txtLR);
    EXPECT_EQ(world.takeSpoken(), (Spoken{" 12､行番号ﾃｷｽﾄﾎﾞｯｸｽ", "3､項目幅ﾃｷｽﾄﾎﾞｯｸｽ", "R､さゆう配置ﾃｷｽﾄﾎﾞｯｸｽ"}));
}

TEST(SideBoxes, TypingInThePositionBoxesSaysTheTextPastTheThrottle) {
    NumberedWorld world(12, {1, 0}, 2);
    sideBoxKeyDown(world.edit, PanelField::txtREC, plainKey(Key::digit1));
    sideBoxTyped(world.edit, PanelField::txtREC, u"1");
    sideBoxTyped(world.edit, PanelField::txtREC, u"12");
    EXPECT_EQ(world.takeSpoken(), (Spoken{"1､行番号ﾃｷｽﾄﾎﾞｯｸｽ", "12､行番号ﾃｷｽﾄﾎﾞｯｸｽ"}));
    EXPECT_EQ(world.record(), 1);
}

TEST(SideBoxes, TypingAnItemNumberIsNoMoveAndIsHeardWhateverWasSaidJustBefore) {
    NumberedWorld world(12, {3, 1}, 2);
    world.zormod.speech.lastSpokenTime = world.clock.now;
    sideBoxKeyDown(world.edit, PanelField::txtItemnum, plainKey(Key::digit2));
    sideBoxTyped(world.edit, PanelField::txtItemnum, u"2");
    EXPECT_EQ(world.takeSpoken(), Spoken{"2､こうもく番号ﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(world.item(), 1);
}

TEST(SideBoxes, ANumberFromAnInputMethodCountsAsTypedWithoutAKey) {
    NumberedWorld world(12, {1, 0}, 2);
    sideBoxTyped(world.edit, PanelField::txtREC, u"12");
    sideBoxTyped(world.edit, PanelField::txtItemnum, u"2");
    EXPECT_EQ(world.takeSpoken(), (Spoken{"12､行番号ﾃｷｽﾄﾎﾞｯｸｽ", "2､こうもく番号ﾃｷｽﾄﾎﾞｯｸｽ"}));
}

TEST(SideBoxes, BehindABoxThatHasBeenLeftAMoveIsReadAsACellAgain) {
    for (const PanelField field : {PanelField::txtREC, PanelField::txtItemnum}) {
        NumberedWorld world(12, {3, 0}, 1);
        sideBoxKeyDown(world.edit, field, plainKey(Key::tab));
        sideBoxLostFocus(world.edit, field);
        const bool isRecord = field == PanelField::txtREC;
        world.zormod.position.curRecord = isRecord ? 4 : 3;
        world.zormod.position.curItem = isRecord ? 0 : 1;
        showCurrentCell(world.edit);
        EXPECT_EQ(world.takeSpoken(), Spoken{isRecord ? "ﾌﾞﾗﾝｸ ､" : "n3､"});
    }
}

TEST(SideBoxes, TypingIsOverWhenTheFocusLeaves) {
    NumberedWorld world(12, {1, 0}, 1);
    sideBoxKeyDown(world.edit, PanelField::txtREC, plainKey(Key::tab));
    sideBoxKeyDown(world.edit, PanelField::txtItemnum, plainKey(Key::tab));
    EXPECT_TRUE(world.edit.typingInRecordBox);
    EXPECT_TRUE(world.edit.typingInItemBox);
    sideBoxLostFocus(world.edit, PanelField::txtREC);
    EXPECT_FALSE(world.edit.typingInRecordBox);
    EXPECT_TRUE(world.edit.typingInItemBox);
    giveInputBoxFocus(world.edit);
    EXPECT_FALSE(world.edit.typingInItemBox);
}

TEST(SideBoxes, EnterInTheRecordBoxGoesToTheRecord) {
    NumberedWorld world(50, {3, 1});
    world.type(u"new");
    world.zormod.input.idAutoOn = 1;
    enterNumber(world, PanelField::txtREC, u"４０");
    EXPECT_EQ(world.record(), 40);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(utf8(world.edit.txtREC.text()), " 40");
    EXPECT_EQ(world.onDisk(3), "    new          ");
    EXPECT_EQ(world.zormod.position.windowFirst, 31);
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.typed(), "");
    EXPECT_FALSE(world.edit.typingInRecordBox);
}

TEST(SideBoxes, TheFirstAndTheLastRecordCanBeAskedFor) {
    NumberedWorld world(50, {3, 1});
    for (const auto& [number, record] : {std::pair(u"50", 50), std::pair(u"1", 1)}) {
        enterNumber(world, PanelField::txtREC, number);
        EXPECT_EQ(world.record(), record);
        EXPECT_EQ(world.beeper.count, 0);
    }
}

TEST(SideBoxes, TheRecordBoxStillCountsAsTypedInWhenEnterHasMovedTheRecord) {
    NumberedWorld world(50, {1, 0}, 1);
    enterNumber(world, PanelField::txtREC, u"40");
    EXPECT_EQ(world.takeSpoken(), Spoken{" 40､行番号ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(SideBoxes, ARecordNumberOutsideTheFileBeepsAndGivesTheOldOneBack) {
    NumberedWorld world(50, {3, 1});
    for (const TextView number : {u"0", u"51", u"-1", u"99999999999", u"abc"}) {
        world.screen.focus = PanelField::txtREC;
        enterNumber(world, PanelField::txtREC, Text(number));
        EXPECT_EQ(world.beeper.count, 1) << utf8(number);
        EXPECT_EQ(utf8(world.edit.txtREC.text()), " 3");
        EXPECT_EQ(utf8(world.screen.fields[PanelField::txtREC]), " 3");
        EXPECT_EQ(world.record(), 3);
        EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    }
}

TEST(SideBoxes, ABadRecordNumberLeavesWhatIsTypedInTheInputBox) {
    NumberedWorld world(50);
    world.type(u"new");
    enterNumber(world, PanelField::txtREC, u"51");
    EXPECT_EQ(world.typed(), "new");
}

TEST(SideBoxes, EnterInTheItemBoxGoesToTheItem) {
    NumberedWorld world(5, {2, 1});
    world.type(u"new");
    enterNumber(world, PanelField::txtItemnum, u"2");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.cell(1), "new       ");
    EXPECT_EQ(world.onDisk(2), "    n2           ");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    enterNumber(world, PanelField::txtItemnum, u"0");
    EXPECT_EQ(world.item(), 0);
}

TEST(SideBoxes, ANumberThatIsNoItemBeepsWhileItIsTyped) {
    NumberedWorld world(5, {2, 1}, 1);
    for (const TextView number : {u"3", u"-1", u"99999"}) {
        world.forget();
        sideBoxTyped(world.edit, PanelField::txtItemnum, Text(number));
        EXPECT_EQ(world.beeper.count, 1) << utf8(number);
        EXPECT_EQ(utf8(world.edit.txtItemnum.text()), "1");
    }
    sideBoxTyped(world.edit, PanelField::txtItemnum, u"２");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(utf8(world.edit.txtItemnum.text()), "２");
    EXPECT_EQ(world.item(), 1);
}

TEST(SideBoxes, TheReadingKeysNameThePositionBoxes) {
    NumberedWorld world(5, {1, 0}, 1);
    int lastSelLength = 0;
    sideBoxKeyUp(world.edit, PanelField::txtREC, shiftKey(Key::pageDown), boxOf(u" 1"), lastSelLength);
    world.later();
    sideBoxKeyUp(world.edit, PanelField::txtREC, ctrlShiftKey(Key::s), boxOf(u" 1"), lastSelLength);
    world.later();
    sideBoxKeyUp(world.edit, PanelField::txtItemnum, ctrlShiftKey(Key::s), boxOf(u"0"), lastSelLength);
    world.later();
    sideBoxKeyUp(world.edit, PanelField::txtWIDTH, ctrlShiftKey(Key::s), boxOf(u"4"), lastSelLength);
    EXPECT_EQ(world.takeSpoken(), (Spoken{"記録番号テキストボックス。 1", "記録番号テキストボックス。 1",
                                          "項目番号テキストボックス。0", "4､項目幅ﾃｷｽﾄﾎﾞｯｸｽ"}));
}

TEST(SideBoxes, TheItemBoxSaysItsTextOnEveryKeyUp) {
    NumberedWorld world(5, {1, 0}, 1);
    int lastSelLength = 0;
    sideBoxKeyUp(world.edit, PanelField::txtItemnum, plainKey(Key::digit2), boxOf(u"2"), lastSelLength);
    world.later();
    sideBoxKeyUp(world.edit, PanelField::txtREC, plainKey(Key::digit2), boxOf(u"2"), lastSelLength);
    EXPECT_EQ(world.takeSpoken(), Spoken{"2､"});
}

TEST(SideBoxes, EnterInTheWidthAndAlignmentBoxesStartsTheirChange) {
    NumberedWorld world(5);
    EXPECT_EQ(sideBoxKeyPress(world.edit, PanelField::txtWIDTH, u'\r'), KeyOutcome::taken);
    EXPECT_EQ(sideBoxKeyPress(world.edit, PanelField::txtLR, u'\r'), KeyOutcome::taken);
    EXPECT_EQ(sideBoxKeyPress(world.edit, PanelField::txtLR, u'R'), KeyOutcome::goesOn);
    EXPECT_EQ(world.commandsRun(), (Spoken{"mnuFLN", "changeAlignment"}));
}

TEST(SideBoxes, EnterInTheMemoGivesTheInputBoxTheFocus) {
    NumberedWorld world(5);
    world.screen.focus = PanelField::RichTextBox2;
    EXPECT_EQ(sideBoxKeyPress(world.edit, PanelField::RichTextBox2, u'\r'), KeyOutcome::taken);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}

TEST(SideBoxes, WithoutATableEnterBeepsAndTheMemoIsLeftAlone) {
    EditWorld world;
    enterNumber(world, PanelField::txtREC, u"1");
    enterNumber(world, PanelField::txtItemnum, u"0");
    EXPECT_EQ(world.beeper.count, 1);
    sideBoxTyped(world.edit, PanelField::RichTextBox2, u"x");
    keepTypedMemo(world.edit);
    EXPECT_EQ(utf8(world.zormod.file.tableMemo), "");
    EXPECT_EQ(world.bytesOf("K"), "");
}

} // namespace
