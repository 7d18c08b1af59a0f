// How the choice of a place begins: by a key on a range that stands, or by the menu.

#include "structure/pointer_choice.h"

#include "edit/jumps.h"
#include "edit/range_keys.h"
#include "edit/range_state.h"
#include "structure/pointer_world.h"

#include <functional>

namespace {

using Place = std::pair<int, int>;

} // namespace

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

TEST(PointerChoice, EveryOtherBeginningTakesWhatIsTypedWithItToo) {
    const std::vector<std::pair<std::int16_t, std::function<void(PointerWorld&)>>> beginnings = {
        {2, [](PointerWorld& world) { world.key(plainKey(Key::down)); }},
        {1, [](PointerWorld& world) { world.key(plainKey(Key::right)); }},
        {3, [](PointerWorld& world) { world.run(u"mnuMITEM"); }},
        {2, [](PointerWorld& world) { world.run(u"mnuMREC"); }},
        {1, [](PointerWorld& world) { world.run(u"mnuCOPY"); }},
    };
    for (const auto& [kind, start] : beginnings) {
        PointerWorld world;
        world.edit.txtinputbox.set(u"zz");
        world.select(kind, 2, 3, 1, 2);
        start(world);
        EXPECT_TRUE(world.isOpen());
        EXPECT_EQ(world.row(1).substr(0, 4), "zz  ");
        EXPECT_EQ(utf8(world.edit.txtinputbox.text()), "");
    }
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

TEST(PointerChoice, ACopyBeginsAtTheFirstRecordOfItsBlockHoweverFarThatIs) {
    PointerWorld world;
    std::vector<std::vector<std::u16string_view>> rows(60, {u"x", u"a", u"b"});
    rows[0] = {u"first", u"a", u"b"};
    world.table({{u"ID", u"L", 6}, {u"甲", u"L", 3}, {u"乙", u"L", 3}}, rows);
    world.show();
    world.zormod.position.curRecord = 50;
    refillWindow(world.zormod, 50);
    world.selectBlock(1, 50, 1, 2);
    world.key(plainKey(Key::down));
    EXPECT_EQ(world.place(), Place(1, 1));
    EXPECT_EQ(world.zormod.window.recordWindow[currentSlot(world.zormod)].substr(0, 5), "first");
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{1, 50, 1, 2}));
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
