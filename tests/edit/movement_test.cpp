#include "edit/movement.h"

#include "edit/edit_world.h"
#include "platform/failure.h"
#include "sheet/record_window.h"

#include <filesystem>

namespace {

TEST(Movement, NextItemGoesThroughTheItemsFromTheId) {
    NumberedWorld world(3);
    nextItem(world.edit);
    EXPECT_EQ(world.item(), 1);
    nextItem(world.edit);
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.record(), 1);
}

TEST(Movement, NextItemBehindTheLastGoesToTheIdOfTheNextRecord) {
    NumberedWorld world(3, {1, 2});
    nextItem(world.edit);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(utf8(world.edit.txtREC.text()), " 2");
    EXPECT_EQ(utf8(world.edit.txtItemnum.text()), "0");
}

TEST(Movement, EnterOnTheLastItemOfTheLastRecordOpensANewRecordAndDownThereBeeps) {
    NumberedWorld world(2, {2, 2});
    world.enter();
    EXPECT_EQ(world.record(), 3);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.beeper.count, 0);
    world.press(Key::down);
    EXPECT_EQ(world.record(), 3);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.recordsOnDisk(), 2u);
}

TEST(Movement, NextItemAtTheVeryEndSetsTheIdAndBeepsWithoutAStatusUpdate) {
    NumberedWorld world(1, {2, 2});
    nextItem(world.edit);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(utf8(world.edit.txtItemnum.text()), "2");
}

TEST(Movement, TheFileGrowsByTypingInTheRecordBehindItsEnd) {
    EditWorld world;
    world.people({{u"1", u"山田", u"30"}});
    world.press(Key::down);
    world.type(u"2");
    world.enter();
    world.type(u"佐藤");
    world.press(Key::up);
    EXPECT_EQ(world.recordsOnDisk(), 2u);
    EXPECT_EQ(world.onDisk(2), "2   \x8d\xb2\x93\xa1         ");
    EXPECT_EQ(world.bytesOf("t.txt").substr(510, 2), "\r\n");
    EXPECT_EQ(utf8(world.screen.title).find("記録数:2)") != std::string::npos, true);
}

TEST(Movement, SteppingPastTheEndAndBackDoesNotLengthenTheFile) {
    NumberedWorld world(2);
    const std::string before = world.bytesOf("t.txt");
    world.stand(2, 0);
    world.press(Key::down);
    EXPECT_EQ(world.record(), 3);
    world.press(Key::up);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    EXPECT_EQ(world.zormod.window.recordWindow[currentSlot(world.zormod) + 1].substr(0, dataLength),
              world.zormod.window.slashLine);
}

TEST(Movement, AnEmptyFileHasOneBlankRecordToTypeIn) {
    EditWorld world;
    world.people({});
    EXPECT_EQ(world.record(), 1);
    world.press(Key::down);
    EXPECT_EQ(world.beeper.count, 1);
    world.type(u"A1");
    world.press(Key::down);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.onDisk(1), "A1               ");
}

TEST(Movement, ABlankRecordInsideTheFileStays) {
    EditWorld world;
    world.people({{u"1"}, {}, {u"3"}});
    world.press(Key::down);
    world.press(Key::down);
    EXPECT_EQ(world.recordsOnDisk(), 3u);
    EXPECT_EQ(world.onDisk(2), std::string(17, ' '));
}

TEST(Movement, UpOnRecordOneBeepsAndSaysNothingOfAMove) {
    NumberedWorld world(3, {1, 0}, 2);
    prevRecord(world.edit);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(Movement, LeftOnTheIdOfRecordOneBeeps) {
    NumberedWorld world(3);
    prevItem(world.edit);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.record(), 1);
}

TEST(Movement, LeftOnTheIdOfRecordFiveGoesToTheLastItemOfRecordFour) {
    NumberedWorld world(6, {5, 0});
    world.press(Key::left);
    EXPECT_EQ(world.record(), 4);
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(utf8(world.edit.txtItemnum.text()), "2");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}

TEST(Movement, PrevItemLooksAtNoInputMarks) {
    NumberedWorld world(3, {1, 2});
    world.zormod.input.allItemsInput = 0;
    world.zormod.items.itemInputMark[2] = 1;
    prevItem(world.edit);
    EXPECT_EQ(world.item(), 1);
}

TEST(Movement, EnterGoesThroughTheChosenItemsOnly) {
    EditWorld world;
    world.table({{u"ID", u"L", 2}, {u"a", u"L", 2}, {u"b", u"L", 2}, {u"c", u"L", 2}, {u"d", u"L", 2}, {u"e", u"L", 2}},
                {{u"1"}, {u"2"}});
    world.show();
    world.zormod.input.allItemsInput = 0;
    world.zormod.items.itemInputMark[2] = 1;
    world.zormod.items.itemInputMark[5] = 1;
    world.stand(1, 2);
    world.enter();
    EXPECT_EQ(world.item(), 5);
    EXPECT_EQ(world.record(), 1);
    world.enter();
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.record(), 2);
}

TEST(Movement, ChosenItemsOfWhichNoneIsChosenGoToTheNextRecord) {
    NumberedWorld world(3);
    world.zormod.input.allItemsInput = 0;
    world.stand(1, 1);
    nextItem(world.edit);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.item(), 1);
}

TEST(Movement, OneChosenItemIsFilledDownTheRecords) {
    NumberedWorld world(3);
    world.zormod.input.allItemsInput = 0;
    world.zormod.items.itemInputMark[1] = 1;
    world.stand(1, 1);
    nextItem(world.edit);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.item(), 1);
}

TEST(Movement, AStepDownPutsTheRecordInTheMiddleOfTheWindow) {
    NumberedWorld world(100, {49, 0});
    nextRecord(world.edit);
    EXPECT_EQ(world.record(), 50);
    EXPECT_EQ(world.zormod.position.windowFirst, 41);
}

TEST(Movement, AStepUpScrollsAndKeepsTheRowOnTheScreen) {
    NumberedWorld world(100, {50, 1});
    prevRecord(world.edit);
    EXPECT_EQ(world.record(), 49);
    EXPECT_EQ(world.zormod.position.windowFirst, 40);
    EXPECT_EQ(world.cell(1), "n49       ");
}

TEST(Movement, AStepUpAtTheTopOfTheFileMovesTheCurrentRowOnly) {
    NumberedWorld world(30, {5, 1});
    prevRecord(world.edit);
    EXPECT_EQ(world.record(), 4);
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(world.cell(1), "n4        ");
}

TEST(Movement, AStepUpOutOfTheWindowIsUndoneWithABeep) {
    NumberedWorld world(30);
    world.zormod.position.windowRows = 2;
    world.stand(5, 0);
    world.zormod.input.idAutoOn = 1;
    world.zormod.input.idAutoValue = 7;
    prevRecord(world.edit);
    EXPECT_EQ(world.record(), 5);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.zormod.input.idAutoValue, 7);
}

TEST(Movement, TheSmallestWindowOfTheViewsStillLetsTheRecordGoUp) {
    NumberedWorld world(20);
    world.zormod.position.windowRows = 4;
    world.stand(10, 0);
    nextRecord(world.edit);
    prevRecord(world.edit);
    prevRecord(world.edit);
    EXPECT_EQ(world.record(), 9);
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(Movement, AFullWindowOfAHundredRowsStepsToTheNewRecord) {
    NumberedWorld world(100);
    world.zormod.position.windowRows = 100;
    world.stand(1, 0);
    world.zormod.position.curRecord = 100;
    nextRecord(world.edit);
    EXPECT_EQ(world.record(), 101);
    EXPECT_EQ(world.cell(1), "          ");
}

TEST(Movement, StepsWriteTheRowThatIsLeft) {
    NumberedWorld world(3, {2, 1});
    world.type(u"new");
    world.enter();
    EXPECT_EQ(world.onDisk(2), "    n2           ");
    nextRecord(world.edit);
    EXPECT_EQ(world.onDisk(2), "    new          ");
}

TEST(Movement, AStepLeavesTheFocusInTheEmptyBox) {
    NumberedWorld world(3);
    world.type(u"x");
    world.screen.focus = PanelField::Text1;
    nextRecord(world.edit);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_FALSE(world.screen.echoTyping);
}

TEST(Movement, AStepBackShowsTheCellInTheEcho) {
    NumberedWorld world(3, {1, 1});
    world.type(u"x");
    prevItem(world.edit);
    EXPECT_EQ(world.typed(), "");
    EXPECT_FALSE(world.screen.echoTyping);
}

TEST(Movement, IdNumbersGoUpWithEachRecord) {
    NumberedWorld world(3);
    world.zormod.input.idAutoOn = 1;
    world.zormod.input.idAutoValue = 7;
    nextRecord(world.edit);
    EXPECT_EQ(world.cell(0), "8   ");
    EXPECT_EQ(utf8(world.edit.Label13), "(自動更新！)8   ");
    nextRecord(world.edit);
    EXPECT_EQ(world.onDisk(2), "8   n2           ");
}

TEST(Movement, GoingUpWritesTheIdLessOneOverTheRecordAbove) {
    EditWorld world;
    world.people({{u"a"}, {u"b"}, {u"c"}, {u"d"}, {u"e"}});
    world.stand(5, 0);
    world.zormod.input.idAutoOn = 1;
    world.zormod.input.idAutoValue = 12;
    prevRecord(world.edit);
    EXPECT_EQ(world.cell(0), "11  ");
    prevRecord(world.edit);
    EXPECT_EQ(world.onDisk(4, 4), "11  ");
}

TEST(Movement, AnIdIsLeftOnlyForExactlyL) {
    EditWorld world;
    world.table({{u"ID", u"C", 6}, {u"a", u"C", 4}}, {{u"", u"x"}});
    world.show();
    world.zormod.input.idAutoValue = 12;
    applyIdAuto(world.edit);
    EXPECT_EQ(world.cell(0), "    12");
    world.stand(1, 1);
    world.type(u"y");
    world.enter();
    EXPECT_EQ(world.cell(1), "    ");
    EXPECT_EQ(world.record(), 2);
    world.press(Key::up);
    EXPECT_EQ(world.cell(1), "y   ");
}

TEST(Movement, AnIdThatIsTooLongIsCutByItsAlignment) {
    EditWorld world;
    world.table({{u"ID", u"R", 3}, {u"a", u"L", 4}}, {{u""}});
    world.show();
    world.zormod.input.idAutoValue = 12345;
    applyIdAuto(world.edit);
    EXPECT_EQ(world.cell(0), "345");
    world.zormod.items.itemAlign[0] = u"L";
    applyIdAuto(world.edit);
    EXPECT_EQ(world.cell(0), "123");
}

TEST(Movement, AnIdIsASingle) {
    EditWorld world;
    world.table({{u"ID", u"L", 8}, {u"a", u"L", 4}}, {{u""}});
    world.show();
    world.zormod.input.idAutoValue = 1E7F;
    applyIdAuto(world.edit);
    EXPECT_EQ(world.cell(0), "1E+07   ");
}

TEST(Movement, WithoutATableEveryStepBeeps) {
    EditWorld world;
    nextItem(world.edit);
    prevItem(world.edit);
    nextRecord(world.edit);
    prevRecord(world.edit);
    EXPECT_EQ(world.beeper.count, 4);
    EXPECT_EQ(world.record(), 1);
}

TEST(Movement, ARowThatCannotBeWrittenIsThrownBeforeAnythingMoves) {
    NumberedWorld world(3, {2, 1});
    world.type(u"new");
    std::filesystem::remove(world.folder.path() + "/t.txt");
    try {
        world.press(Key::down);
        ADD_FAILURE() << "the write was not refused";
    } catch (const RuntimeFailure& failure) {
        EXPECT_TRUE(failure.rowWrite);
    }
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.typed(), "new");
    EXPECT_EQ(utf8(world.edit.txtREC.text()), " 2");
    EXPECT_EQ(world.cell(1), "new       ");
    EXPECT_FALSE(world.edit.commitBusy);
}

TEST(Movement, WhileARangeIsDrawnNothingGoesToTheDiskOrTheScreen) {
    NumberedWorld world(30, {5, 1});
    world.type(u"new");
    commitCell(world.zormod, u"new");
    world.forget();
    world.zormod.taskWord = u"HTYU";
    nextRecord(world.edit);
    nextItem(world.edit);
    prevRecord(world.edit);
    prevItem(world.edit);
    EXPECT_EQ(world.record(), 5);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.onDisk(5), "    n5           ");
    EXPECT_EQ(world.screen.redraws, 0);
    EXPECT_EQ(world.screen.focusCalls, 0);
}

TEST(Movement, MovingItemsOrRecordsKeepsTheFocusWhereItIs) {
    NumberedWorld world(30);
    world.zormod.taskWord = u"moveitem";
    nextItem(world.edit);
    prevItem(world.edit);
    EXPECT_EQ(world.screen.focusCalls, 0);
    world.zormod.taskWord = u"moverecord";
    nextRecord(world.edit);
    prevRecord(world.edit);
    EXPECT_EQ(world.screen.focusCalls, 0);
    world.zormod.taskWord.clear();
    nextRecord(world.edit);
    EXPECT_EQ(world.screen.focusCalls, 1);
}

} // namespace
