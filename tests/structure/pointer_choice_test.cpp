// How the choice of a place ends: carried out, refused or given up.

#include "structure/pointer_choice.h"

#include "edit/jumps.h"
#include "edit/range_keys.h"
#include "edit/range_state.h"
#include "structure/pointer_world.h"

using ::testing::ElementsAre;

namespace {

using Spoken = std::vector<std::string>;
using Place = std::pair<int, int>;

} // namespace

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
