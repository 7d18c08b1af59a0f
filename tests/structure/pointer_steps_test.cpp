// Looking for the place: steps, jumps and readings.

#include "structure/pointer_choice.h"

#include "edit/jumps.h"
#include "edit/range_keys.h"
#include "edit/range_state.h"
#include "structure/pointer_world.h"

using ::testing::IsEmpty;

namespace {

using Spoken = std::vector<std::string>;
using Place = std::pair<int, int>;

} // namespace

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

TEST(PointerChoice, EveryDigitOfBothBlocksAsks) {
    PointerWorld world;
    world.selectItems(1, 2);
    world.key(plainKey(Key::right));
    for (const Key zero : {Key::digit0, Key::keypad0}) {
        for (int digit = 0; digit <= 9; ++digit) {
            world.dialogs.questions.clear();
            world.ask(plainKey(static_cast<Key>(static_cast<int>(zero) + digit)), u"5");
            EXPECT_EQ(world.dialogs.questions.size(), 1U) << digit;
        }
    }
}

TEST(PointerChoice, InACopyTheJumpsMoveTheTargetToo) {
    PointerWorld world;
    world.selectBlock(2, 3, 1, 2);
    world.key(plainKey(Key::right));
    world.ask(ctrlKey(Key::j), u"5");
    EXPECT_EQ(world.place(), Place(5, 1));
    EXPECT_EQ(world.line(), "ﾃﾞｰﾀｺﾋﾟｰ：行/列:2・1を5・1にｺﾋﾟｰ");
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{5, 6, 1, 2}));
    world.ask(ctrlKey(Key::h), u"+2");
    EXPECT_EQ(world.place(), Place(5, 3));
    EXPECT_EQ(world.line(), "ﾃﾞｰﾀｺﾋﾟｰ：行/列:2・1を5・3にｺﾋﾟｰ");
    EXPECT_EQ(world.mask(MaskKind::target), (Mask{5, 6, 3, 4}));
    EXPECT_EQ(world.mask(MaskKind::block), (Mask{2, 3, 1, 2}));
    EXPECT_EQ(world.task(), "copy");
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
