#include "edit/input_box.h"

#include "edit/edit_world.h"
#include "platform/failure.h"

#include <filesystem>
#include <optional>

namespace {

/// How the key ends the program; nothing if it doesn't.
std::optional<EndKind> endBy(EditWorld& world, Key key) {
    try {
        world.down(plainKey(key));
    } catch (const ProgramEnd& end) {
        return end.how;
    }
    return {};
}

TEST(InputBox, EnterReplacesTheCellAndGoesOn) {
    EditWorld world;
    world.people({{u"1", u"佐藤", u"30"}}, 2);
    world.stand(1, 1);
    world.type(u"山田");
    world.later();
    world.takeSpoken();
    world.enter();
    EXPECT_EQ(world.cell(1), "山田      ");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.takeSpoken(), Spoken{"30､  ｷﾞｮｳ1 ｺｳﾓｸ2 年齢 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
    EXPECT_EQ(world.onDisk(1, 8), "1   \x8d\xb2\x93\xa1");
    world.press(Key::down);
    EXPECT_EQ(world.onDisk(1, 8), "1   \x8e\x52\x93\x63");
}

TEST(InputBox, EnterInAnEmptyBoxLeavesTheCellAndGoesOn) {
    NumberedWorld world(2, {1, 2});
    world.enter();
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.onDisk(1), "    n1           ");
}

TEST(InputBox, EnterWritesABoxOfBlanksAndDownDoesNotCommitIt) {
    NumberedWorld world(2, {1, 1});
    world.type(u"   ");
    world.press(Key::down);
    world.press(Key::up);
    EXPECT_EQ(world.cell(1), "n1        ");
    world.type(u"   ");
    world.enter();
    EXPECT_EQ(world.cell(1), "          ");
}

TEST(InputBox, OtherCharactersGoIntoTheBox) {
    NumberedWorld world(2);
    EXPECT_EQ(world.box.keyPress(u'a'), KeyOutcome::goesOn);
    EXPECT_EQ(world.box.keyPress(u'\r'), KeyOutcome::taken);
}

TEST(InputBox, RightAlignedCellsAreAlignedByTheByte) {
    NumberedWorld world(2, {1, 2});
    world.type(u"7");
    world.enter();
    world.press(Key::up);
    EXPECT_EQ(world.onDisk(1), "    n1          7");
}

TEST(InputBox, TheEchoCopiesWhatIsTyped) {
    NumberedWorld world(2);
    world.type(u"ab");
    EXPECT_EQ(utf8(world.screen.echo), "ab");
    EXPECT_TRUE(world.screen.echoTyping);
    world.press(Key::escape);
    EXPECT_FALSE(world.screen.echoTyping);
}

TEST(InputBox, TypingIsSpokenWithTheBytesThatAreLeft) {
    NumberedWorld world(2, {1, 1}, 1);
    world.type(u"x");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｴｯｸｽ ざん9バイト"});
    world.later();
    world.type(u"山");
    EXPECT_EQ(world.takeSpoken(), Spoken{"山 ざん7バイト"});
    world.later();
    world.box.change(u"x");
    EXPECT_EQ(world.takeSpoken(), Spoken{"山 削除 ざん9バイト"});
    world.later();
    world.box.change(u"abx");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ab 挿入 ざん7バイト"});
    world.later();
    world.box.change(u"abx");
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(InputBox, ADroppedReadingIsNotMadeUpFor) {
    NumberedWorld world(2, {1, 1}, 1);
    world.type(u"ab");
    world.later();
    world.type(u"c");
    EXPECT_EQ(world.takeSpoken(), (Spoken{"ｴｰ ざん9バイト", "ｼｰ ざん7バイト"}));
}

TEST(InputBox, ExactlyTheInhibitTimeIsDroppedToo) {
    NumberedWorld world(2, {1, 1}, 1);
    world.zormod.speech.inhibitSeconds = 0.25;
    world.type(u"a");
    world.clock.now += 0.25;
    world.type(u"b");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｴｰ ざん9バイト"});
}

TEST(InputBox, FillingAnItemCommitsItAndMovesOnWithoutAReading) {
    NumberedWorld world(2, {1, 2}, 2);
    world.type(u"12");
    world.takeSpoken();
    world.later();
    world.type(u"3");
    EXPECT_EQ(world.cell(0), "    ");
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.onDisk(1), "    n1        123");
    EXPECT_EQ(world.beeper.count, 0);
    EXPECT_EQ(world.takeSpoken(), Spoken());
    EXPECT_EQ(world.zormod.speech.speechMode, 2);
    world.type(u"x");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｴｯｸｽ ざん3バイト"});
}

TEST(InputBox, BlanksThatFillTheLastItemBehindTheEndLeaveAnEmptyBox) {
    NumberedWorld world(1, {2, 2});
    world.type(u"   ");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.record(), 2);
    EXPECT_EQ(world.typed(), "");
}

TEST(InputBox, AnItemThatFillsARowThatCannotBeWrittenStaysInTheBox) {
    NumberedWorld world(2, {1, 2}, 1);
    world.type(u"12");
    std::filesystem::remove(world.folder.path() + "/t.txt");
    EXPECT_THROW(world.type(u"3"), RuntimeFailure);
    EXPECT_EQ(world.typed(), "123");
    EXPECT_EQ(world.cell(2), "123");
    EXPECT_EQ(world.zormod.speech.speechMode, 1);
}

TEST(InputBox, AFullWidthCharacterOverTheEdgeIsDroppedWithABeep) {
    EditWorld world;
    world.people({{u"1", u"", u"5"}}, 2);
    world.stand(1, 1);
    world.type(u"123456789");
    world.takeSpoken();
    world.later();
    world.type(u"あ");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.cell(1), "123456789 ");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(InputBox, ALongPasteLosesTwoBytesAndIsCutByTheCell) {
    EditWorld world;
    world.people({{u"1", u"", u"5"}, {u"2", u"b", u"6"}}, 2);
    world.stand(1, 1);
    world.box.change(u"abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.cell(1), "abcdefghij");
    EXPECT_EQ(world.cell(2), "  5");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(InputBox, TheLastTwoBytesAreDroppedWhateverTheLastCharacterIs) {
    EditWorld world;
    world.table({{u"ID", u"L", 2}, {u"a", u"L", 4}, {u"b", u"L", 4}}, {{u"", u"", u"x"}});
    world.show();
    world.stand(1, 1);
    world.box.change(u"aあいb");
    EXPECT_EQ(world.onDisk(1, 10), "      x   ");
    world.press(Key::down);
    // The lead byte of the second character stays alone at the edge.
    EXPECT_EQ(world.onDisk(1, 10), "  a\x82\xa0\x82x   ");
}

TEST(InputBox, TheLimitEndsTheInputForEveryItem) {
    EditWorld world;
    world.people({{u"1", u"abcdefghij", u"5"}});
    world.stand(1, 1);
    world.zormod.input.inputLimit = 4;
    world.type(u"wxy");
    EXPECT_EQ(world.item(), 1);
    world.type(u"z");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.cell(1), "wxyz      ");
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(InputBox, TheLimitCountsBytesAndMayBePassed) {
    EditWorld world;
    world.people({{u"1", u"", u"5"}});
    world.stand(1, 1);
    world.zormod.input.inputLimit = 3;
    world.type(u"山");
    EXPECT_EQ(world.item(), 1);
    world.type(u"田");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.cell(1), "山田      ");
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(InputBox, WithALimitTheCommitIsNotSilent) {
    EditWorld world;
    world.people({{u"1", u"a", u"5"}}, 1);
    world.stand(1, 1);
    world.zormod.input.inputLimit = 1;
    world.type(u"b");
    EXPECT_EQ(world.takeSpoken(), Spoken{"5､"});
}

TEST(InputBox, WithALimitTheClearingOfTheBoxIsHeardToo) {
    EditWorld world;
    world.people({{u"1", u"a", u"5"}}, 1);
    world.stand(1, 1);
    world.zormod.input.inputLimit = 3;
    world.type(u"ab");
    world.takeSpoken();
    world.later();
    world.type(u"c");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ab 削除 ざん10バイト"});
    EXPECT_EQ(world.item(), 2);
}

TEST(InputBox, EmptyingTheBoxCommitsNothingInAnItemOfNoWidth) {
    EditWorld world;
    world.table({{u"ID", u"L", 4}, {u"a", u"L", 0}, {u"b", u"L", 4}}, {{u"1"}});
    world.show();
    world.type(u"x");
    world.enter();
    EXPECT_EQ(world.item(), 1);
    world.type(u"y");
    EXPECT_EQ(world.item(), 2);
}

TEST(InputBox, ChangesDuringACommitAreClearedAndNotRead) {
    NumberedWorld world(2, {1, 1}, 1);
    world.edit.commitBusy = true;
    world.box.change(u"abc");
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(utf8(world.edit.previousInputText), "");
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(InputBox, DownAfterTypingSaysTheCellItComesTo) {
    NumberedWorld world(3, {1, 1}, 1);
    world.type(u"abc");
    world.later();
    world.takeSpoken();
    world.press(Key::down);
    EXPECT_EQ(world.takeSpoken(), Spoken{"n2 ､"});
    EXPECT_EQ(world.onDisk(1), "    abc          ");
}

TEST(InputBox, EscWithTextOnlyClearsTheBox) {
    NumberedWorld world(2, {1, 1}, 1);
    world.type(u"ab");
    world.takeSpoken();
    world.later();
    EXPECT_EQ(world.down(plainKey(Key::escape)), KeyOutcome::taken);
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.cell(1), "n1        ");
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(InputBox, EscInAnEmptyBoxWritesTheRowAndEndsInOrderWithSpeechOn) {
    NumberedWorld world(2, {1, 1}, 2);
    world.type(u"new");
    world.enter();
    world.takeSpoken();
    world.writeFile("zorTalk", "0");
    EXPECT_EQ(endBy(world, Key::escape), EndKind::orderly);
    EXPECT_EQ(world.onDisk(1), "    new          ");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ﾛﾐｶ ｼｭｳﾘｮｳ"});
    EXPECT_NE(world.bytesOf("zorTalk").find('2'), std::string::npos);
}

TEST(InputBox, EscWithSpeechOffEndsAtOnceAndLeavesTheOldMode) {
    NumberedWorld world(2, {1, 1});
    world.type(u"new");
    world.enter();
    world.writeFile("zorTalk", "1");
    world.clipboard.foreign(u"mine");
    EXPECT_EQ(endBy(world, Key::escape), EndKind::atOnce);
    EXPECT_EQ(world.onDisk(1), "    new          ");
    EXPECT_EQ(world.bytesOf("zorTalk"), "1");
    EXPECT_EQ(utf8(world.clipboard.contents), "mine");
    EXPECT_TRUE(world.clipboard.written.empty());
}

TEST(InputBox, ASecondEscEndsTheProgram) {
    NumberedWorld world(2);
    world.type(u"ab");
    EXPECT_EQ(endBy(world, Key::escape), std::nullopt);
    EXPECT_EQ(endBy(world, Key::escape), EndKind::atOnce);
}

TEST(InputBox, EscInABoxOfBlanksEndsTheProgramAndCommitsNone) {
    NumberedWorld world(2, {1, 1});
    world.type(u"  ");
    EXPECT_EQ(endBy(world, Key::escape), EndKind::atOnce);
    EXPECT_EQ(world.onDisk(1), "    n1           ");
}

TEST(InputBox, EscWhoseRowCannotBeWrittenDoesNotEndTheProgram) {
    NumberedWorld world(2, {1, 1}, 2);
    world.type(u"new");
    world.enter();
    world.takeSpoken();
    std::filesystem::remove(world.folder.path() + "/t.txt");
    EXPECT_THROW(world.down(plainKey(Key::escape)), RuntimeFailure);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(InputBox, WithoutATableTypingIsSpokenAsTextAndKeysBeep) {
    EditWorld world;
    world.zormod.speech.speechMode = 1;
    world.type(u"x");
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｴｯｸｽ"});
    world.enter();
    world.box.mnuCTRLD();
    world.box.mnuCTRLU();
    EXPECT_EQ(world.beeper.count, 3);
    EXPECT_EQ(world.typed(), "x");
    EXPECT_EQ(endBy(world, Key::escape), std::nullopt);
    EXPECT_EQ(endBy(world, Key::escape), EndKind::orderly);
}

TEST(InputBox, KeyDownDoesNothingWhileTheCaretIsBeingPlaced) {
    NumberedWorld world(3);
    world.edit.keyIgnore = true;
    EXPECT_EQ(world.down(plainKey(Key::down)), KeyOutcome::goesOn);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.commandsRun(), Spoken());
}

TEST(InputBox, AKeyWhileARangeIsDrawnGoesBackToItsFormAndIsUsedUp) {
    NumberedWorld world(3);
    world.zormod.taskWord = u"HTYU";
    EXPECT_EQ(world.down(plainKey(Key::down)), KeyOutcome::taken);
    EXPECT_EQ(world.down(plainKey(Key::escape)), KeyOutcome::taken);
    EXPECT_EQ(world.commandsRun(), (Spoken{"focusRangeBox", "focusRangeBox"}));
    EXPECT_EQ(world.record(), 1);
}

TEST(InputBox, AKeyLetGoWhileARangeIsDrawnIsAStepOfIt) {
    NumberedWorld world(3, {1, 0}, 1);
    world.zormod.taskWord = u"HTYU";
    world.up(shiftKey(Key::down));
    world.up(plainKey(Key::shift));
    EXPECT_EQ(world.commandsRun(), (Spoken{"stepRange", "stepRange"}));
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(InputBox, KeysDoNothingWhileATargetOfAMoveIsChosen) {
    NumberedWorld world(3);
    for (const TextView word : {u"moveitem", u"moverecord"}) {
        world.zormod.taskWord = Text(word);
        EXPECT_EQ(world.down(plainKey(Key::down)), KeyOutcome::goesOn);
        EXPECT_EQ(world.down(plainKey(Key::escape)), KeyOutcome::goesOn);
    }
    EXPECT_EQ(world.record(), 1);
}

} // namespace
