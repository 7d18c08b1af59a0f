#include "structure/pointer_choice.h"

#include "edit/jumps.h"
#include "edit/range_keys.h"
#include "edit/range_state.h"
#include "structure/pointer_world.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Spoken = std::vector<std::string>;
using Place = std::pair<int, int>;

TEST(PointerChoice, RightOnARangeOfItemsPointsTwoItemsBehindIt) {
    PointerWorld world;
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    EXPECT_EQ(world.task(), "moveitem");
    EXPECT_TRUE(world.isOpen());
    EXPECT_EQ(world.pointer(), 4);
    EXPECT_EQ(world.place(), Place(1, 4));
    EXPECT_EQ(utf8(world.choice().words().title), "項目の移動");
    EXPECT_EQ(utf8(world.choice().words().carryOut), "項目移動実行CR");
    EXPECT_EQ(utf8(world.choice().words().instructions),
              "一連の項目（マスク範囲の項目）を移動します。左右矢印キーで、移動点項目を指定して下さい。今の移動点項目にある項目"
              "は、移動された項目の後に、連なり、移動後の空白になった部分は、詰められます。CRキーで項目の移動が実行。中止の場合"
              "はESCを。");
    EXPECT_EQ(world.line(), "移動項目：項目1～　項目2 を　項目4の前に");
    EXPECT_EQ(world.mask(MaskKind::wholes), (Mask{1, 6, 1, 2}));
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{1, 6, 4, 4}));
    EXPECT_EQ(world.beeps(), 0);
}

TEST(PointerChoice, LeftPointsOneItemInFrontOfTheRange) {
    PointerWorld world;
    world.selectItems(4, 3);
    world.key(plainKey(Key::left));
    EXPECT_EQ(world.pointer(), 2);
    EXPECT_EQ(world.place(), Place(1, 2));
    EXPECT_EQ(world.line(), "移動項目：項目3～　項目4 を　項目2の前に");
}

TEST(PointerChoice, LeftOnARangeThatBeginsAtItem1PointsAtItem1Itself) {
    PointerWorld world;
    world.selectItems(1, 2);
    world.key(plainKey(Key::left));
    EXPECT_EQ(world.pointer(), 1);
    world.press(Key::left);
    EXPECT_EQ(world.pointer(), 0);
    world.press(Key::right);
    EXPECT_EQ(world.pointer(), 3);
}

TEST(PointerChoice, ItemsThatHaveNoPlaceOnThatSideBeepAndStaySelected) {
    PointerWorld world;
    world.selectItems(0, 1);
    world.key(plainKey(Key::left));
    EXPECT_EQ(world.beeps(), 1);
    world.selectItems(2, 4);
    world.key(plainKey(Key::right));
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.task(), "");
    EXPECT_FALSE(world.isOpen());
    EXPECT_EQ(world.zormod.selection.selectionKind, 3);
    world.selectItems(2, 3);
    world.key(plainKey(Key::right));
    EXPECT_EQ(world.pointer(), 5);
}

TEST(PointerChoice, ARangeOfAllItemsBeepsAndIsGivenUp) {
    for (const Key key : {Key::left, Key::right}) {
        PointerWorld world;
        world.selectItems(0, 4);
        world.key(plainKey(key));
        EXPECT_EQ(world.beeps(), 1);
        world.expectOver();
    }
}

TEST(PointerChoice, ARangeOfItemsTakesWhatIsTypedWithIt) {
    PointerWorld world;
    world.edit.txtinputbox.set(u"zz");
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    EXPECT_EQ(world.row(1).substr(0, 4), "zz  ");
    EXPECT_EQ(utf8(world.edit.txtinputbox.text()), "");
}

TEST(PointerChoice, DownOnRecordsPointsTwoRecordsBehindThem) {
    PointerWorld world;
    world.selectRecords(2, 3);
    world.key(plainKey(Key::down));
    EXPECT_EQ(world.task(), "moverecord");
    EXPECT_EQ(world.pointer(), 5);
    EXPECT_EQ(world.place(), Place(5, 0));
    EXPECT_EQ(utf8(world.choice().words().title), "記録の移動");
    EXPECT_EQ(utf8(world.choice().words().carryOut), "記録移動実行CR");
    EXPECT_EQ(utf8(world.choice().words().instructions),
              "一連の記録を移動します。上下矢印キーで、記録移動点を指定して下さい。今の移動点にある記録は、移動された記録の後に"
              "、連なり、移動後の空白になった部分は、詰められます。CRキーで記録の移動が実行。中止の場合はESCを。");
    EXPECT_EQ(world.line(), "移動記録：記録2～3 を　記録5の前に");
    EXPECT_EQ(world.mask(MaskKind::wholes), (Mask{2, 3, 0, 5}));
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{5, 5, 0, 5}));
    EXPECT_EQ(world.zormod.window.recordWindow[currentSlot(world.zormod)].substr(0, 2), "r5");
}

TEST(PointerChoice, UpOnRecordsPointsAtTheRecordInFront) {
    PointerWorld world;
    world.selectRecords(4, 5);
    world.key(plainKey(Key::up));
    EXPECT_EQ(world.pointer(), 3);
    EXPECT_EQ(world.line(), "移動記録：記録4～5 を　記録3の前に");
}

TEST(PointerChoice, RecordsThatHaveNoPlaceOnThatSideBeepAndStaySelected) {
    PointerWorld world(3);
    world.selectRecords(1, 1);
    world.key(plainKey(Key::up));
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.task(), "");
    world.key(plainKey(Key::down));
    EXPECT_EQ(world.beeps(), 0);
    EXPECT_EQ(world.pointer(), 3);
    world.press(Key::other);
    PointerWorld second(3);
    second.selectRecords(2, 2);
    second.key(plainKey(Key::down));
    EXPECT_EQ(second.beeps(), 1);
    EXPECT_FALSE(second.isOpen());
    EXPECT_EQ(second.zormod.selection.selectionKind, 2);
}

TEST(PointerChoice, UpOnAllRecordsBeepsWithoutMoving) {
    PointerWorld world;
    world.selectRecords(1, 6);
    world.key(plainKey(Key::up));
    world.key(plainKey(Key::down));
    EXPECT_EQ(world.beeps(), 2);
    EXPECT_EQ(world.zormod.selection.selectionKind, 2);
    EXPECT_EQ(world.task(), "");
}

TEST(PointerChoice, AnArrowOnABlockBeginsACopyAtItsFirstCell) {
    PointerWorld world;
    world.selectBlock(2, 3, 4, 1);
    world.key(plainKey(Key::down));
    EXPECT_EQ(world.task(), "copy");
    EXPECT_EQ(world.place(), Place(2, 1));
    EXPECT_EQ(utf8(world.choice().words().title), "ﾃﾞｰﾀｺﾋﾟ-");
    EXPECT_EQ(utf8(world.choice().words().carryOut), "ﾃﾞｰﾀｺﾋﾟｰCR");
    EXPECT_EQ(utf8(world.choice().words().instructions),
              "記録2から記録3　の範囲の、項目1から4（マスク範囲）の項目ﾃﾞｰﾀをｺﾋﾟｰします。←→ｷｰで緑のマスクを動かし移動点を指定し"
              "て下さい｡ｺﾋﾟｰ先範囲がﾜｰｸｼｰﾄからあふれた場合､あふれ部分は無くなります。又､各ﾃﾞｰﾀはｺﾋﾟｰ先の項目幅に従います（ｺﾋﾟ"
              "ｰ先の項目幅が小さい場合はあふれ部分は無くなります）.");
    EXPECT_EQ(world.line(), "ﾃﾞｰﾀｺﾋﾟｰ：行/列:2・1を2・1にｺﾋﾟ-");
    EXPECT_EQ(world.mask(MaskKind::block), (Mask{2, 3, 1, 4}));
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{2, 3, 1, 4}));
}

TEST(PointerChoice, CtrlArrowOnABlockBeginsAMove) {
    PointerWorld world;
    world.selectBlock(2, 3, 1, 2);
    world.key(ctrlKey(Key::left));
    EXPECT_EQ(world.task(), "move");
    EXPECT_EQ(utf8(world.choice().words().title), "ﾃﾞｰﾀ移動");
    EXPECT_EQ(utf8(world.choice().words().carryOut), "ﾃﾞｰﾀ移動CR");
    EXPECT_EQ(utf8(world.choice().words().instructions),
              "記録2から記録3　の範囲の、項目1から2（マスク範囲）の項目ﾃﾞｰﾀを移動します。←→ｷｰで緑のマスクを動かし移動点を指定し"
              "て下さい｡移動先範囲がﾜｰｸｼｰﾄからあふれた場合､あふれ部分は無くなります。又､各ﾃﾞｰﾀは移動先の項目幅に従います（移動"
              "先の項目幅が小さい場合はあふれ部分は無くなります）.");
    EXPECT_EQ(world.line(), "ﾃﾞｰﾀ移動：行/列:2・1を2・1に移動");
}

TEST(PointerChoice, MenuEntriesWithoutTheirRangeSayWhichIsWanted) {
    const std::vector<std::tuple<TextView, std::string, std::string>> rows = {
        {u"mnuMITEM", "Alt+←→で項目範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", "項目範囲の先指定"},
        {u"mnuMREC", "Alt+↓↑で記録範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", "記録範囲の先指定"},
        {u"mnuCOPY", "shift+矢印で範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", "範囲の先指定"},
        {u"mnuMOVE", "shift+矢印で範囲を指定した上で、本ﾒﾆｭｰを選択して下さい", "範囲の先指定"},
    };
    for (const auto& [command, text, title] : rows) {
        PointerWorld world;
        for (const std::int16_t kind : {0, 1, 2, 3}) {
            const bool isWanted = (kind == 3 && command == u"mnuMITEM") || (kind == 2 && command == u"mnuMREC") ||
                                  (kind == 1 && command[3] != u'M') || (kind == 1 && command == u"mnuMOVE");
            if (isWanted) {
                continue;
            }
            world.select(kind, 1, 2, 1, 2);
            world.dialogs.expectedMessages = 1;
            world.screen.focusCalls = 0;
            world.run(command);
            EXPECT_EQ(world.message(), std::pair(text, title)) << kind;
            EXPECT_EQ(world.screen.focusCalls, 1) << "the input box says that it is back";
            EXPECT_EQ(world.task(), "");
            EXPECT_EQ(world.zormod.selection.selectionKind, kind);
        }
    }
}

TEST(PointerChoice, MenuEntriesBeepWithoutATable) {
    TaskWorld world;
    for (const TextView command : {u"mnuMITEM", u"mnuMREC", u"mnuCOPY", u"mnuMOVE"}) {
        world.run(command);
        EXPECT_EQ(world.beeps(), 1);
    }
}

TEST(PointerChoice, MenuEntriesHaveTheShorterWords) {
    const std::string moves =
        "選択範囲(マスク範囲)の項目ﾃﾞｰﾀを移動します。←→ｷｰでみどりマスクを動かし移動点を指定して下さい";
    const std::string copies =
        "選択範囲(マスク範囲)の項目ﾃﾞｰﾀをｺﾋﾟｰします。←→ｷｰでみどりマスクを動かし移動点を指定して下さい";
    const std::vector<std::tuple<TextView, std::int16_t, std::string, std::string, std::string>> rows = {
        {u"mnuMITEM", 3, "移動", moves, "移動項目：項目1～　項目2 を　項目4の前に"},
        {u"mnuMREC", 2, "移動", moves, "移動記録：記録2～3 を　記録5の前に"},
        {u"mnuMOVE", 1, "移動", moves, "ﾃﾞｰﾀ移動：行/列:2・1を2・1に移動"},
        {u"mnuCOPY", 1, "ﾃﾞｰﾀｺﾋﾟ-", copies, "ﾃﾞｰﾀｺﾋﾟｰ：行/列:2・1を2・1にｺﾋﾟ-"},
    };
    for (const auto& [command, kind, title, instructions, line] : rows) {
        PointerWorld world;
        world.select(kind, 2, 3, 1, 2);
        world.run(command);
        EXPECT_TRUE(world.isOpen());
        EXPECT_EQ(utf8(world.choice().words().title), title);
        EXPECT_EQ(utf8(world.choice().words().carryOut), "CR");
        EXPECT_EQ(utf8(world.choice().words().instructions), instructions);
        EXPECT_EQ(world.line(), line);
    }
}

TEST(PointerChoice, MenuEntriesStartInFrontWhereThereIsNoPlaceBehind) {
    PointerWorld world;
    world.selectItems(3, 5);
    world.run(u"mnuMITEM");
    EXPECT_EQ(world.pointer(), 2);
    PointerWorld records;
    records.selectRecords(5, 6);
    records.run(u"mnuMREC");
    EXPECT_EQ(records.pointer(), 4);
}

TEST(PointerChoice, MenuEntriesGiveARangeOfEverythingUp) {
    PointerWorld world;
    world.selectItems(0, 5);
    world.run(u"mnuMITEM");
    EXPECT_EQ(world.beeps(), 1);
    world.expectOver();
    world.selectRecords(1, 5);
    world.run(u"mnuMREC");
    EXPECT_EQ(world.beeps(), 1);
    world.expectOver();
}

TEST(PointerChoice, ArrowsMoveTheItemPointerByOneAndOverTheRange) {
    PointerWorld world;
    world.selectItems(2, 3);
    world.key(plainKey(Key::right));
    EXPECT_EQ(world.pointer(), 5);
    world.press(Key::left);
    EXPECT_EQ(world.pointer(), 4);
    world.press(Key::left);
    EXPECT_EQ(world.pointer(), 1);
    EXPECT_EQ(world.place(), Place(1, 1));
    EXPECT_EQ(world.line(), "移動項目：項目2～　項目3 を　項目1の前に");
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{1, 6, 1, 1}));
    EXPECT_EQ(world.mask(MaskKind::wholes), (Mask{1, 6, 2, 3}));
    world.press(Key::right);
    EXPECT_EQ(world.pointer(), 4);
    EXPECT_EQ(world.beeps(), 0);
}

TEST(PointerChoice, AtTheEdgeOfTheTableTheItemPointerBeepsAndStays) {
    PointerWorld world;
    world.selectItems(2, 3);
    world.key(plainKey(Key::right));
    world.press(Key::right);
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.pointer(), 5);
    world.press(ctrlKey(Key::left));
    world.press(Key::left);
    EXPECT_EQ(world.beeps(), 0);
    world.press(Key::left);
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.pointer(), 0);
}

TEST(PointerChoice, AtARangeThatLiesAtTheEdgeThePointerStaysOnItsOtherSide) {
    PointerWorld world;
    world.selectItems(0, 1);
    world.key(plainKey(Key::right));
    world.press(Key::left);
    EXPECT_EQ(world.pointer(), 2);
    world.press(Key::left);
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.pointer(), 2);
    PointerWorld last;
    last.selectItems(4, 5);
    last.key(plainKey(Key::left));
    last.press(Key::right);
    EXPECT_EQ(last.beeps(), 1);
    EXPECT_EQ(last.pointer(), 3);
    // A jump may lead into the range; a step at its edge leads out on the other side.
    last.ask(ctrlKey(Key::h), u"5");
    EXPECT_EQ(last.pointer(), 5);
    last.press(Key::right);
    EXPECT_EQ(last.beeps(), 1);
    EXPECT_EQ(last.pointer(), 3);
}

TEST(PointerChoice, ArrowsAcrossTheKindBeepAndMoveNothing) {
    PointerWorld world;
    world.selectItems(2, 3);
    world.key(plainKey(Key::right));
    for (const KeyStroke& stroke : {plainKey(Key::up), plainKey(Key::down), ctrlKey(Key::up), ctrlKey(Key::down)}) {
        world.press(stroke);
        EXPECT_EQ(world.beeps(), 1);
        EXPECT_EQ(world.place(), Place(1, 5));
    }
    PointerWorld records;
    records.selectRecords(2, 3);
    records.key(plainKey(Key::down));
    records.press(Key::left);
    records.press(Key::right);
    EXPECT_EQ(records.beeps(), 2);
    EXPECT_EQ(records.place(), Place(5, 0));
}

TEST(PointerChoice, ArrowsMoveTheRecordPointerOverTheRangeAndBehindTheLastRecord) {
    PointerWorld world;
    world.selectRecords(3, 4);
    world.key(plainKey(Key::up));
    EXPECT_EQ(world.pointer(), 2);
    world.press(Key::down);
    EXPECT_EQ(world.pointer(), 5);
    EXPECT_EQ(world.line(), "移動記録：記録3～4 を　記録5の前に");
    world.press(Key::down);
    world.press(Key::down);
    EXPECT_EQ(world.pointer(), 7);
    EXPECT_EQ(world.place(), Place(7, 0));
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{7, 7, 0, 5}));
    EXPECT_EQ(world.beeps(), 0);
    world.press(Key::down);
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.pointer(), 7);
    world.press(ctrlKey(Key::up));
    EXPECT_EQ(world.pointer(), 1);
    world.press(Key::up);
    EXPECT_EQ(world.beeps(), 1);
    EXPECT_EQ(world.pointer(), 1);
}

TEST(PointerChoice, TheWindowFollowsThePointerOfRecords) {
    PointerWorld world;
    world.zormod.position.windowRows = 3;
    world.selectRecords(1, 1);
    world.key(plainKey(Key::down));
    for (const char* id : {"r4", "r5", "r6"}) {
        world.press(Key::down);
        EXPECT_EQ(world.zormod.window.recordWindow[currentSlot(world.zormod)].substr(0, 2), id);
    }
}

TEST(PointerChoice, WhenTheChoiceEndsTheWindowShowsWhatIsOnTheDisk) {
    PointerWorld world;
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    storeSlot(world.zormod, currentSlot(world.zormod), "old");
    world.choice().giveUp();
    EXPECT_EQ(world.zormod.window.recordWindow[currentSlot(world.zormod)].substr(0, 3), "r1 ");
}

TEST(PointerChoice, EachStepOfThePointerIsRead) {
    PointerWorld world(6, 2);
    world.selectRecords(2, 3);
    world.key(plainKey(Key::down));
    world.forget();
    world.press(Key::down);
    EXPECT_EQ(world.takeSpoken(), Spoken{"r6 ､  ｷﾞｮｳ6 ｺｳﾓｸ0 ID .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(PointerChoice, InACopyTheArrowsMoveTheCurrentCellAnywhere) {
    PointerWorld world;
    world.selectBlock(2, 3, 1, 2);
    world.key(plainKey(Key::right));
    world.press(Key::right);
    EXPECT_EQ(world.place(), Place(2, 2));
    EXPECT_EQ(world.line(), "ﾃﾞｰﾀｺﾋﾟｰ：行/列:2・1を2・2にｺﾋﾟｰ");
    world.press(Key::down);
    EXPECT_EQ(world.place(), Place(3, 2));
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{3, 4, 2, 3}));
    EXPECT_EQ(world.mask(MaskKind::block), (Mask{2, 3, 1, 2}));
    world.press(Key::left);
    world.press(Key::up);
    EXPECT_EQ(world.place(), Place(2, 1));
    EXPECT_EQ(world.task(), "copy");
}

TEST(PointerChoice, TheTargetOfABlockIsCutAtTheEdgesOfTheTable) {
    PointerWorld world;
    world.selectBlock(2, 4, 1, 3);
    world.key(ctrlKey(Key::right));
    world.press(ctrlKey(Key::right));
    EXPECT_EQ(world.place(), Place(2, 5));
    world.press(ctrlKey(Key::down));
    EXPECT_EQ(world.place(), Place(6, 5));
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{6, 6, 5, 5}));
    EXPECT_EQ(world.line(), "ﾃﾞｰﾀ移動：行/列:2・1を6・5に移動");
    world.press(Key::down);
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{7, 7, 5, 5}));
    world.press(ctrlKey(Key::up));
    world.press(ctrlKey(Key::left));
    EXPECT_EQ(world.place(), Place(1, 1));
}

TEST(PointerChoice, DigitsAndJumpKeysAskForItemsAndRecords) {
    PointerWorld world;
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    for (const KeyStroke& stroke : {plainKey(Key::digit3), plainKey(Key::keypad0), ctrlKey(Key::h)}) {
        world.dialogs.questions.clear();
        world.ask(stroke, u"5");
        ASSERT_EQ(world.dialogs.questions.size(), 1U);
        EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定項目へ移動");
        EXPECT_EQ(world.pointer(), 5);
    }
    world.ask(ctrlKey(Key::j), u"3");
    EXPECT_EQ(world.place(), Place(3, 5));
    EXPECT_EQ(world.pointer(), 5);
    PointerWorld records;
    records.selectRecords(2, 3);
    records.key(plainKey(Key::down));
    for (const KeyStroke& stroke : {plainKey(Key::digit9), ctrlKey(Key::j)}) {
        records.dialogs.questions.clear();
        records.ask(stroke, u"6");
        ASSERT_EQ(records.dialogs.questions.size(), 1U);
        EXPECT_EQ(utf8(records.dialogs.questions[0].title), "指定記録へ移動");
        EXPECT_EQ(records.pointer(), 6);
    }
}

TEST(PointerChoice, AJumpKeepsTheTaskRewritesTheLineAndRepaints) {
    PointerWorld world;
    world.selectRecords(2, 3);
    world.key(plainKey(Key::down));
    world.screen.masks.clear();
    world.ask(ctrlKey(Key::j), u"-4");
    EXPECT_EQ(world.task(), "moverecord");
    EXPECT_EQ(world.pointer(), 1);
    EXPECT_EQ(world.line(), "移動記録：記録2～3 を　記録1の前に");
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{1, 1, 0, 5}));
    EXPECT_EQ(world.mask(MaskKind::wholes), (Mask{2, 3, 0, 5}));
    world.ask(ctrlKey(Key::j), u"0");
    EXPECT_EQ(world.beeps(), 1);
    world.ask(ctrlKey(Key::j), u"");
    EXPECT_EQ(world.pointer(), 1);
    EXPECT_EQ(world.task(), "moverecord");
}

TEST(PointerChoice, AJumpFromTheMenuMovesThePointerToo) {
    PointerWorld world;
    int focused = 0;
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    world.choice().onFocus([&] { ++focused; });
    world.dialogs.texts = {u"3"};
    world.run(u"mnuHJ");
    EXPECT_EQ(world.pointer(), 3);
    EXPECT_EQ(focused, 1);
    world.dialogs.texts = {u""};
    world.run(u"mnuHJ");
    EXPECT_EQ(focused, 2);
    EXPECT_EQ(world.task(), "moveitem");
}

TEST(PointerChoice, TheInputBoxHandsTheFocusOnDuringACopy) {
    PointerWorld world;
    int focused = 0;
    world.selectBlock(2, 3, 1, 2);
    world.key(plainKey(Key::right));
    world.choice().onFocus([&] { ++focused; });
    giveInputBoxFocus(world.edit);
    EXPECT_EQ(focused, 1);
}

TEST(PointerChoice, OtherKeysDoNothing) {
    PointerWorld world;
    world.selectBlock(2, 3, 1, 2);
    world.key(plainKey(Key::right));
    for (const KeyStroke& stroke : {plainKey(Key::a), shiftKey(Key::left), altKey(Key::down), plainKey(Key::del),
                                    ctrlKey(Key::digit1), plainKey(Key::space)}) {
        EXPECT_EQ(world.choice().keyDown(stroke), KeyOutcome::taken);
    }
    EXPECT_EQ(world.place(), Place(2, 1));
    EXPECT_EQ(world.task(), "copy");
    EXPECT_EQ(world.beeps(), 0);
    for (const KeyStroke& stroke : {plainKey(Key::tab), shiftKey(Key::tab), plainKey(Key::shift)}) {
        EXPECT_EQ(world.choice().keyDown(stroke), KeyOutcome::goesOn);
    }
}

TEST(PointerChoice, TheStatusReadingTellsACopyAndTakesEveryMoveForOneOfRecords) {
    const auto status = [](PointerWorld& world, const KeyStroke& stroke) {
        world.forget();
        world.choice().keyUp(stroke);
        const Spoken spoken = world.takeSpoken();
        const std::string text = spoken.size() == 1 ? spoken[0] : "";
        const std::string path = utf8(world.zormod.file.fileDrive + u":" + world.zormod.file.fileName);
        EXPECT_EQ(text.substr(0, path.size()), path);
        return text.substr(std::min(text.size(), path.size()));
    };
    PointerWorld world(6, 1);
    world.selectBlock(2, 3, 1, 2);
    world.key(plainKey(Key::right));
    EXPECT_EQ(status(world, shiftKey(Key::pageDown)),
              "。ｷﾛｸｽｳ6。ｺｳﾓｸ1。ｺﾋﾟｰ点を指定してくださいCRを叩くと実行されます。");
    const std::string move = "移動します、記録移動点を指定してくださいCRを叩くと実行されます。";
    world.zormod.taskWord = u"move";
    EXPECT_EQ(status(world, ctrlShiftKey(Key::s)), "。ｷﾛｸｽｳ6。ｺｳﾓｸ1。" + move);
    PointerWorld items(6, 1);
    items.selectItems(1, 2);
    items.key(plainKey(Key::right));
    EXPECT_EQ(status(items, ctrlShiftKey(Key::s)), "。ｷﾛｸｽｳ6。ｺｳﾓｸ4。" + move);
    PointerWorld records(6, 1);
    records.selectRecords(1, 2);
    records.key(plainKey(Key::down));
    EXPECT_EQ(status(records, ctrlShiftKey(Key::s)), "。ｷﾛｸｽｳ6。ｺｳﾓｸ0。" + move);
    records.forget();
    records.choice().keyUp(plainKey(Key::down));
    EXPECT_THAT(records.takeSpoken(), IsEmpty());
}

TEST(PointerChoice, EnterMovesTheRecordsInFrontOfThePointer) {
    PointerWorld world(6, 1);
    world.selectRecords(2, 3);
    world.key(plainKey(Key::down));
    Spoken shown;
    world.choice().onChanged([&] { shown.push_back(world.line()); });
    world.forget();
    world.press(Key::enter);
    EXPECT_EQ(world.ids(), "r1 r4 r2 r3 r5 r6 ");
    EXPECT_THAT(shown, ElementsAre("記録の移動実行中．．．．"));
    EXPECT_EQ(world.takeSpoken().front(), "記録の移動実行中．．．．");
    EXPECT_EQ(world.place(), Place(5, 0));
    world.expectOver();
    EXPECT_EQ(world.zormod.window.recordWindow[currentSlot(world.zormod)].substr(0, 2), "r5");
}

TEST(PointerChoice, RecordsGoToTheEndWithThePointerBehindTheLast) {
    PointerWorld world;
    world.selectRecords(2, 3);
    world.key(plainKey(Key::down));
    world.press(Key::down);
    world.press(Key::down);
    world.press(Key::enter);
    EXPECT_EQ(world.ids(), "r1 r4 r5 r6 r2 r3 ");
    world.expectOver();
}

TEST(PointerChoice, EnterMovesTheItemsInFrontOfThePointer) {
    PointerWorld world(2, 1);
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    world.forget();
    world.press(Key::enter);
    EXPECT_EQ(world.row(1), "r1  c  a  b  d  e  ");
    EXPECT_EQ(utf8(world.zormod.items.itemName[2]), "甲");
    EXPECT_EQ(world.takeSpoken().front(), "項目の移動実行中．．．．");
    world.expectOver();
}

TEST(PointerChoice, AMoveOfItemsShowsTheTableAsOneThatHasBeenOpened) {
    PointerWorld world(2);
    setPanelText(world.edit, PanelField::Label8, u"入力字数制限:項目幅");
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    world.press(Key::enter);
    EXPECT_EQ(utf8(world.edit.Label8), "字数制限:項目幅");
    EXPECT_EQ(world.place(), Place(1, 4));
    EXPECT_EQ(utf8(world.edit.RichTextBox1), "丁");
    world.expectOver();
}

TEST(PointerChoice, AMoveThatIsStoppedLeavesTheLabelsToo) {
    PointerWorld world(2);
    setPanelText(world.edit, PanelField::Label8, u"入力字数制限:項目幅");
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    world.eventLoop.atTurn[1] = [&] { world.zormod.results.answers[0] = 1.0; };
    world.press(Key::enter);
    EXPECT_EQ(utf8(world.edit.Label8), "入力字数制限:項目幅");
    EXPECT_EQ(utf8(world.zormod.items.itemName[1]), "甲");
    world.expectOver();
}

TEST(PointerChoice, EnterCopiesAndMovesABlockToTheCurrentCell) {
    PointerWorld world(6, 1);
    world.selectBlock(1, 2, 1, 2);
    world.key(plainKey(Key::right));
    world.press(ctrlKey(Key::down));
    world.press(Key::right);
    world.press(Key::right);
    world.forget();
    world.press(Key::enter);
    EXPECT_EQ(world.takeSpoken().front(), "ｺﾋﾟｰ実行中．．．．");
    EXPECT_EQ(world.row(6), "r6  a  b  a  b  e  ");
    EXPECT_EQ(world.row(1), "r1  a  b  c  d  e  ");
    world.expectOver();
    EXPECT_EQ(world.place(), Place(6, 3));
    world.selectBlock(1, 2, 1, 2);
    world.key(ctrlKey(Key::right));
    world.press(ctrlKey(Key::right));
    world.forget();
    world.press(Key::enter);
    EXPECT_EQ(world.takeSpoken().front(), "ﾃﾞｰﾀ移動実行中．．．．");
    EXPECT_EQ(world.row(1), "r1     b  c  d  a  "); // what has no place stays
    world.expectOver();
}

TEST(PointerChoice, APointerInsideTheRangeIsRefusedWithTheWordsOfItems) {
    for (const bool movesItems : {true, false}) {
        PointerWorld world(6, 1);
        const std::string before = world.bytesOf("t.txt");
        movesItems ? world.selectItems(2, 3) : world.selectRecords(2, 3);
        world.key(plainKey(movesItems ? Key::right : Key::down));
        world.ask(movesItems ? ctrlKey(Key::h) : ctrlKey(Key::j), u"2");
        world.forget();
        world.dialogs.expectedMessages = 1;
        world.press(Key::enter);
        EXPECT_EQ(world.takeSpoken().front(), movesItems ? "項目の移動実行中．．．．" : "記録の移動実行中．．．．");
        EXPECT_EQ(world.message(), std::pair(std::string("移動点と移動項目範囲と重なっています"),
                                             std::string("移動点の再設定")));
        EXPECT_EQ(world.beeps(), 1);
        EXPECT_EQ(world.bytesOf("t.txt"), before);
        world.expectOver();
    }
}

TEST(PointerChoice, ARangeWithItsEndsTheOtherWayRoundHoldsThePointerAllTheSame) {
    PointerWorld world;
    const std::string before = world.bytesOf("t.txt");
    world.selectItems(2, 3);
    world.key(plainKey(Key::right));
    world.ask(ctrlKey(Key::h), u"2");
    std::swap(world.zormod.selection.selItemFrom, world.zormod.selection.selItemTo);
    world.dialogs.expectedMessages = 1;
    world.press(Key::enter);
    EXPECT_EQ(world.message().second, "移動点の再設定");
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    world.expectOver();
}

TEST(PointerChoice, GivingUpLeavesTheTableAsItWas) {
    PointerWorld world;
    const std::string before = world.bytesOf("t.txt");
    world.selectBlock(2, 3, 1, 2);
    world.key(ctrlKey(Key::right));
    world.press(Key::right);
    world.choice().giveUp();
    world.expectOver();
    EXPECT_GT(world.screen.redraws, 0);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    EXPECT_EQ(world.place(), Place(2, 2));
}

TEST(PointerChoice, GivingUpWhileTheWorkRunsIsItsStop) {
    PointerWorld world;
    world.selectRecords(2, 3);
    world.key(plainKey(Key::down));
    const std::string before = world.bytesOf("t.txt");
    world.eventLoop.atTurn[3] = [&] {
        EXPECT_EQ(world.task(), "work");
        world.choice().giveUp();
    };
    world.press(Key::enter);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    world.expectOver();
}

TEST(PointerChoice, AFormThatIsClosedOrLeftBehindEndsTheChoice) {
    PointerWorld world;
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    world.choice().closed();
    world.expectOver();
    world.choice().closed();
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    // Another operation has ended the task meanwhile.
    world.zormod.taskWord.clear();
    const std::string before = world.bytesOf("t.txt");
    world.press(Key::enter);
    world.expectOver();
    EXPECT_EQ(world.bytesOf("t.txt"), before);
}

TEST(PointerChoice, TheDescriptionIsTheInstructionsAndTheLine) {
    PointerWorld world;
    world.selectItems(1, 2);
    world.run(u"mnuMITEM");
    EXPECT_EQ(utf8(world.choice().description()),
              "選択範囲(マスク範囲)の項目ﾃﾞｰﾀを移動します。←→ｷｰでみどりマスクを動かし移動点を指定して下さい"
              "移動項目：項目1～　項目2 を　項目4の前に");
}

} // namespace
