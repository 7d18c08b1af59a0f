#include "edit/input_keys.h"

#include "edit/edit_world.h"

namespace {

TEST(InputKeys, LeftAndRightMoveTheCellInAnEmptyBoxOnly) {
    NumberedWorld world(3);
    EXPECT_EQ(world.press(Key::right), KeyOutcome::taken);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.press(Key::left), KeyOutcome::taken);
    EXPECT_EQ(world.item(), 0);
    world.type(u"a");
    EXPECT_EQ(world.press(Key::right), KeyOutcome::goesOn);
    EXPECT_EQ(world.press(Key::left), KeyOutcome::goesOn);
    EXPECT_EQ(world.item(), 0);
    EXPECT_EQ(world.typed(), "a");
}

TEST(InputKeys, ABoxOfBlanksCountsAsEmpty) {
    NumberedWorld world(3);
    world.type(u" ");
    EXPECT_EQ(world.press(Key::right), KeyOutcome::taken);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.typed(), "");
}

TEST(InputKeys, UpAndDownCommitWhatIsTyped) {
    NumberedWorld world(5, {3, 1});
    world.type(u"down");
    EXPECT_EQ(world.press(Key::down), KeyOutcome::taken);
    EXPECT_EQ(world.record(), 4);
    EXPECT_EQ(world.onDisk(3), "    down         ");
    world.type(u"up");
    EXPECT_EQ(world.press(Key::up), KeyOutcome::taken);
    EXPECT_EQ(world.record(), 3);
    EXPECT_EQ(world.onDisk(4), "    up           ");
    EXPECT_FALSE(world.edit.commitBusy);
}

TEST(InputKeys, InsertAndDeleteShiftTheCellsInAnEmptyBox) {
    NumberedWorld world(3);
    EXPECT_EQ(world.press(Key::insert), KeyOutcome::taken);
    EXPECT_EQ(world.press(Key::del), KeyOutcome::taken);
    EXPECT_EQ(world.commandsRun(), (Spoken{"shiftCellsRight", "shiftCellsLeft"}));
    world.commands.names.clear();
    world.type(u"a");
    EXPECT_EQ(world.press(Key::insert), KeyOutcome::goesOn);
    EXPECT_EQ(world.press(Key::del), KeyOutcome::goesOn);
    EXPECT_EQ(world.commandsRun(), Spoken());
}

TEST(InputKeys, CtrlShiftInsPutsTheRowOnTheDiskAndInserts) {
    NumberedWorld world(3, {2, 1});
    world.type(u"new");
    EXPECT_EQ(world.press(ctrlShiftKey(Key::insert)), KeyOutcome::taken);
    EXPECT_EQ(world.onDisk(2), "    new          ");
    EXPECT_EQ(world.commandsRun(), Spoken{"mnuINSREC1"});
}

TEST(InputKeys, TheKeypadWithCtrlNamesTheFormula) {
    NumberedWorld world(1);
    EXPECT_EQ(world.press(ctrlKey(Key::keypad0)), KeyOutcome::taken);
    EXPECT_EQ(world.press(ctrlKey(Key::keypad9)), KeyOutcome::taken);
    EXPECT_EQ(world.press(ctrlKey(Key::digit9)), KeyOutcome::goesOn);
    EXPECT_EQ(world.press(Key::keypad9), KeyOutcome::goesOn);
    EXPECT_EQ(world.commandsRun(), (Spoken{"formulaKey0", "formulaKey9"}));
}

TEST(InputKeys, EveryKeypadDigitHasItsFormula) {
    for (int digit = 0; digit <= 9; ++digit) {
        const Key key = static_cast<Key>(static_cast<int>(Key::keypad0) + digit);
        const InputKey* const row = findInputKey(ctrlKey(key), false);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(utf8(row->command), "formulaKey" + std::to_string(digit));
    }
}

TEST(InputKeys, TheWidthKeysWriteTheRowFirst) {
    NumberedWorld world(3, {2, 1});
    commitCell(world.zormod, u"new");
    EXPECT_EQ(world.press(shiftKey(Key::space)), KeyOutcome::taken);
    EXPECT_EQ(world.onDisk(2), "    new          ");
    EXPECT_EQ(world.press(ctrlKey(Key::space)), KeyOutcome::taken);
    EXPECT_EQ(world.commandsRun(), (Spoken{"widenItem", "narrowItem"}));
}

TEST(InputKeys, AnItemOfOneByteCannotBeNarrowed) {
    EditWorld world;
    world.table({{u"ID", u"L", 1}, {u"a", u"L", 2}}, {{u"1"}});
    world.show();
    world.press(ctrlKey(Key::space));
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.commandsRun(), Spoken());
}

TEST(InputKeys, ATableThatFillsTheRecordCannotBeWidened) {
    EditWorld world;
    world.table({{u"ID", u"L", 55}, {u"a", u"L", 100}, {u"b", u"L", 100}}, {{u"1"}});
    world.show();
    world.press(shiftKey(Key::space));
    EXPECT_EQ(world.commandsRun(), Spoken{"widenItem"});
    world.table({{u"ID", u"L", 56}, {u"a", u"L", 100}, {u"b", u"L", 100}}, {{u"1"}});
    world.show();
    world.press(shiftKey(Key::space));
    EXPECT_EQ(world.commandsRun(), Spoken());
}

TEST(InputKeys, TheCardViewRefusesTheWidthKeys) {
    NumberedWorld world(3);
    world.zormod.display.viewMode = 1;
    world.dialogs.expectedMessages = 2;
    EXPECT_EQ(world.press(shiftKey(Key::space)), KeyOutcome::taken);
    EXPECT_EQ(world.press(ctrlKey(Key::space)), KeyOutcome::taken);
    ASSERT_EQ(world.dialogs.messages.size(), 2u);
    EXPECT_EQ(utf8(world.dialogs.messages[1].text), "個別記録表示中は項目幅変更は出来ません");
    EXPECT_EQ(utf8(world.dialogs.messages[1].title), "注意");
    EXPECT_EQ(world.commandsRun(), Spoken());
}

TEST(InputKeys, AWidthKeyThatIsRefusedWritesNothing) {
    NumberedWorld world(3, {2, 1});
    commitCell(world.zormod, u"new");
    world.zormod.display.viewMode = 1;
    world.dialogs.expectedMessages = 2;
    world.press(shiftKey(Key::space));
    world.press(ctrlKey(Key::space));
    EXPECT_EQ(world.onDisk(2), "    n2           ");
}

TEST(InputKeys, TheGridViewTakesTheWidthKeys) {
    NumberedWorld world(3);
    world.zormod.display.viewMode = 2;
    world.press(shiftKey(Key::space));
    world.press(ctrlKey(Key::space));
    EXPECT_EQ(world.commandsRun(), (Spoken{"widenItem", "narrowItem"}));
}

TEST(InputKeys, KeysOutsideTheTableGoOn) {
    NumberedWorld world(3);
    for (const KeyStroke& stroke : {plainKey(Key::home), plainKey(Key::backspace), ctrlKey(Key::c), plainKey(Key::f3),
                                    shiftKey(Key::insert), ctrlShiftKey(Key::down), plainKey(Key::enter)}) {
        EXPECT_EQ(world.press(stroke), KeyOutcome::goesOn);
    }
    EXPECT_EQ(world.record(), 1);
}

TEST(InputKeys, CtrlAltKeysDoNothing) {
    NumberedWorld world(3);
    EXPECT_EQ(world.press({Key::down, false, true, true}), KeyOutcome::goesOn);
    EXPECT_EQ(world.press({Key::right, true, true, true}), KeyOutcome::goesOn);
    EXPECT_EQ(world.record(), 1);
    EXPECT_EQ(world.item(), 0);
}

TEST(InputKeys, WithoutATableTheKeysOfTheTableBeep) {
    EditWorld world;
    const std::vector<KeyStroke> strokes = {
        plainKey(Key::down),         plainKey(Key::up),           ctrlKey(Key::down),      ctrlKey(Key::up),
        plainKey(Key::right),        plainKey(Key::left),         ctrlKey(Key::right),     ctrlKey(Key::left),
        ctrlShiftKey(Key::insert),   plainKey(Key::insert),       plainKey(Key::del),      ctrlKey(Key::t),
        ctrlShiftKey(Key::t),        plainKey(Key::pageUp),       plainKey(Key::pageDown), ctrlKey(Key::keypad3),
        shiftKey(Key::space),        ctrlKey(Key::space)};
    for (const KeyStroke& stroke : strokes) {
        EXPECT_EQ(world.down(stroke), KeyOutcome::taken);
    }
    EXPECT_EQ(world.beeper.count, static_cast<int>(strokes.size()));
    EXPECT_EQ(world.commandsRun(), Spoken());
}

/// What one key up says in the middle cell of a small table.
std::string said(EditWorld& world, const KeyStroke& stroke) {
    world.forget();
    world.up(stroke);
    const Spoken spoken = world.takeSpoken();
    return spoken.empty() ? "" : spoken.front();
}

TEST(ReadingKeys, EachHasTwoStrokes) {
    EditWorld world;
    world.people({{u"A1", u"山田", u"30"}, {u"B2", u"佐藤", u"41"}}, 2);
    world.stand(2, 1);
    EXPECT_EQ(said(world, ctrlKey(Key::pageDown)), "佐藤。ｲﾏﾉ ｺｳﾓｸﾉ ｷｿﾞﾝﾃﾞｰﾀｦ ﾖﾐｱｹﾞﾏｼﾀ");
    EXPECT_EQ(said(world, ctrlShiftKey(Key::d)), "佐藤。ｲﾏﾉ ｺｳﾓｸﾉ ｷｿﾞﾝﾃﾞｰﾀｦ ﾖﾐｱｹﾞﾏｼﾀ");
    EXPECT_EQ(said(world, ctrlKey(Key::pageUp)), "ｺｳﾓｸ1,氏名。L。ｺｳﾓｸﾊﾊﾞ10");
    EXPECT_EQ(said(world, ctrlShiftKey(Key::r)), "ｺｳﾓｸ1,氏名。L。ｺｳﾓｸﾊﾊﾞ10");
    EXPECT_EQ(said(world, shiftKey(Key::pageUp)), "ｷﾞｮｳ2");
    EXPECT_EQ(said(world, ctrlShiftKey(Key::w)), "ｷﾞｮｳ2");
    const std::string path = utf8(world.zormod.file.fileDrive + u":" + world.zormod.file.fileName);
    EXPECT_EQ(said(world, ctrlShiftKey(Key::pageUp)), path + "。ｷﾛｸｽｳ2。.ﾋｮｳﾒﾓmemo");
    EXPECT_EQ(said(world, ctrlShiftKey(Key::q)), path + "。ｷﾛｸｽｳ2。.ﾋｮｳﾒﾓmemo");
    EXPECT_EQ(said(world, ctrlShiftKey(Key::pageDown)), "ｷﾆｭｳｺｳﾓｸわ全項目.IDｺｳﾓｸ.B2  .字数制限:項目幅");
    EXPECT_EQ(said(world, ctrlShiftKey(Key::e)), "ｷﾆｭｳｺｳﾓｸわ全項目.IDｺｳﾓｸ.B2  .字数制限:項目幅");
    EXPECT_EQ(said(world, altKey(Key::n)), "佐藤      。ギョウ2 項目1氏名");
    EXPECT_EQ(said(world, altKey(Key::m)), "ギョウ2 B2  佐藤       41");
    EXPECT_EQ(said(world, altKey(Key::g)), "常時表示項目はありません");
}

TEST(ReadingKeys, TheBoxTextIsReadWithTheBytesThatAreLeft) {
    EditWorld world;
    world.people({{u"A1", u"山田", u"30"}}, 2);
    world.stand(1, 1);
    EXPECT_EQ(said(world, shiftKey(Key::pageDown)),
              " ざん10バイトｲﾏ ﾆｭｳﾘｮｸﾎﾞｯｸｽﾆﾜ ｹﾞﾝｺｳｶﾞｱﾘﾏｾﾝ。CRﾀﾞｹｦﾀﾀｸﾄ ｷｿﾞﾝﾃﾞｰﾀﾜ ｶｷｶﾜﾗﾅｲﾃﾞ、ｼﾞｺｳﾓｸﾆ ｶｷｺﾐｺｳﾓｸｶﾞ ｲﾄﾞｳｼﾏｽ");
    world.type(u"ab");
    EXPECT_EQ(said(world, ctrlShiftKey(Key::s)), "ab ざん8バイト");
    EXPECT_EQ(said(world, shiftKey(Key::pageDown)), "ab ざん8バイト");
}

TEST(ReadingKeys, AnEmptyCellIsToldAsNotFilled) {
    EditWorld world;
    world.people({{u"A1"}}, 1);
    world.stand(1, 1);
    EXPECT_EQ(said(world, ctrlKey(Key::pageDown)), "ｲﾏﾉ ｺｳﾓｸ ﾜ ﾐｷﾆｭｳﾃﾞｽ");
}

TEST(ReadingKeys, TheCaretIsReadInABoxWithText) {
    NumberedWorld world(1, {1, 0}, 1);
    world.type(u"aB");
    world.forget();
    world.box.keyUp(plainKey(Key::left), {.text = u"aB", .caret = 1, .selectionStart = 1});
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｵｵﾓｼﾞﾋﾞｰ"});
    world.forget();
    world.box.keyUp(plainKey(Key::right), {.text = u"aB", .caret = 2, .selectionStart = 2});
    EXPECT_EQ(world.takeSpoken(), Spoken{""});
    EXPECT_EQ(said(world, plainKey(Key::f12)), "3もじめaBキャレット");
}

TEST(ReadingKeys, KeysThatMovedTheCellAreSilentOnKeyUp) {
    NumberedWorld world(3, {1, 0}, 1);
    for (const Key key : {Key::left, Key::right, Key::up, Key::down, Key::pageUp, Key::pageDown}) {
        EXPECT_EQ(said(world, plainKey(key)), "");
    }
}

TEST(ReadingKeys, TheShiftKeyAloneReadsTheBox) {
    NumberedWorld world(3, {1, 0}, 1);
    EXPECT_EQ(said(world, plainKey(Key::shift)), "ブランク");
    world.type(u"ab");
    EXPECT_EQ(said(world, plainKey(Key::shift)), "ab");
    EXPECT_EQ(said(world, ctrlKey(Key::shift)), "");
}

TEST(ReadingKeys, ASelectionIsReadAsItGrowsAndShrinks) {
    NumberedWorld world(3, {1, 0}, 1);
    world.type(u"abc");
    world.forget();
    const KeyStroke left = shiftKey(Key::left);
    EXPECT_EQ(world.down(left), KeyOutcome::goesOn);
    world.box.keyUp(left, {.text = u"abc", .caret = 1, .selectionStart = 1, .selectionLength = 2});
    EXPECT_EQ(world.takeSpoken(), Spoken{"bc。ｶﾞｾﾝﾀｸｻﾚﾃｲﾏｽ.ｶｰｿﾙﾜ ﾖﾐｱｹﾞｹﾞﾝｺｳﾉ  ﾊｼﾞﾒﾆ ｱﾘﾏｽ"});
    EXPECT_EQ(world.edit.lastSelLength, 2);
    world.later();
    world.box.keyUp(shiftKey(Key::right), {.text = u"abc", .caret = 2, .selectionStart = 2, .selectionLength = 1});
    EXPECT_EQ(world.takeSpoken(), Spoken{"c。ｶﾞｾﾝﾀｸｻﾚﾃｲﾏｽ.ｶｰｿﾙﾜ ﾖﾐｱｹﾞｹﾞﾝｺｳﾉ  ﾊｼﾞﾒﾆ ｱﾘﾏｽ"});
    world.later();
    world.up(plainKey(Key::home));
    EXPECT_EQ(world.edit.lastSelLength, 0);
}

TEST(ReadingKeys, TheyStayBehindTheThrottle) {
    NumberedWorld world(3, {1, 0}, 1);
    world.forget();
    world.up(shiftKey(Key::pageUp));
    world.up(shiftKey(Key::pageUp));
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｷﾞｮｳ1"});
}

TEST(ReadingKeys, WithoutATableThoseThatNeedOneBeep) {
    EditWorld world;
    world.zormod.speech.speechMode = 1;
    for (const KeyStroke& stroke : {ctrlKey(Key::pageDown), ctrlKey(Key::pageUp), shiftKey(Key::pageUp),
                                    ctrlShiftKey(Key::q), altKey(Key::n), altKey(Key::m), altKey(Key::g)}) {
        world.up(stroke);
    }
    EXPECT_EQ(world.beeper.count, 7);
    EXPECT_EQ(world.takeSpoken(), Spoken());
    EXPECT_EQ(said(world, plainKey(Key::shift)), "ブランク");
    EXPECT_NE(said(world, ctrlShiftKey(Key::s)), "");
    EXPECT_NE(said(world, ctrlShiftKey(Key::e)), "");
}

} // namespace
