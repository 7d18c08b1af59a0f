#include "edit/range_drawing.h"

#include "edit/edit_world.h"
#include "edit/range_keys.h"

namespace {

/// A table of the items ID, 氏名, 年齢 and the drawing of a range on it.
struct DrawingWorld : EditWorld {
    explicit DrawingWorld(int records = 30, std::int16_t speechMode = 1) {
        numbered(records, speechMode);
        drawing.onShown([this] { shown = drawing.fields(); });
    }
    /// Begins a range at a cell; what was said until then is forgotten.
    void begin(RangeKind kind, std::int32_t record, std::int16_t item) {
        stand(record, item);
        drawing.start(kind);
        screen.maskHides = 0;
        forget();
    }
    /// The texts said by one key, pressed and let go.
    Spoken key(const KeyStroke& stroke) {
        later();
        drawing.keyDown(stroke);
        drawing.keyUp(stroke);
        return takeSpoken();
    }
    Spoken key(Key plain) { return key(plainKey(plain)); }
    /// Where the cursor stands after one key.
    std::pair<int, int> after(const KeyStroke& stroke) {
        key(stroke);
        return {record(), item()};
    }
    std::vector<std::string> fields() const {
        return {utf8(shown.Text1), utf8(shown.Text2), utf8(shown.Text3), utf8(shown.Text4)};
    }
    /// Kind and ends of the selection.
    std::vector<int> range() const {
        const Selection& s = zormod.selection;
        return {s.selectionKind, s.selRecordFrom, s.selRecordTo, s.selItemFrom, s.selItemTo};
    }
    /// Ends of the mask of a kind that is shown; empty if it isn't.
    std::vector<int> mask(MaskKind kind) const {
        const auto found = screen.masks.find(kind);
        if (found == screen.masks.end()) {
            return {};
        }
        const CellRange& r = found->second;
        return {r.firstRecord, r.lastRecord, r.firstItem, r.lastItem};
    }

    RangeFields shown;
    RangeDrawing drawing{edit};
};

using Ends = std::vector<int>;

TEST(RangeDrawing, BeginsAtTheCurrentCellAndTakesNoStep) {
    DrawingWorld world;
    world.zormod.input.idAutoOn = 1;
    world.stand(3, 1);
    EXPECT_EQ(utf8(world.drawing.Label6()), "どこから？（ｶｰｿﾙ移動+CR）");
    world.drawing.start(RangeKind::block);
    EXPECT_EQ(world.range(), (Ends{1, 3, 3, 1, 1}));
    EXPECT_EQ(utf8(world.zormod.taskWord), "HTYU");
    EXPECT_EQ(utf8(world.forms.opened), Spoken{"frmHANI"});
    EXPECT_EQ(world.mask(MaskKind::block), (Ends{3, 3, 1, 1}));
    EXPECT_EQ(world.fields(), (Spoken{"3", "3", "1", "1"}));
    EXPECT_EQ(utf8(world.drawing.Label6()), "どこまで？(ｶ-ｿﾙ移動+CR)");
    EXPECT_EQ(utf8(world.drawing.title()), "範囲の指定");
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(RangeDrawing, WholeRecordsHaveAllItemsAndWholeItemsAllRecords) {
    DrawingWorld world;
    world.begin(RangeKind::records, 4, 2);
    EXPECT_EQ(world.range(), (Ends{2, 4, 4, 0, 2}));
    EXPECT_EQ(world.mask(MaskKind::wholes), (Ends{4, 4, 0, 2}));
    EXPECT_EQ(utf8(world.drawing.title()), "記録範囲の指定");
    world.begin(RangeKind::items, 4, 2);
    EXPECT_EQ(world.range(), (Ends{3, 1, 30, 2, 2}));
    EXPECT_EQ(world.mask(MaskKind::wholes), (Ends{1, 30, 2, 2}));
    EXPECT_EQ(utf8(world.drawing.title()), "項目範囲の指定");
}

TEST(RangeDrawing, TheArrowsMoveByOneRecordAndOneItem) {
    DrawingWorld world;
    world.begin(RangeKind::block, 5, 1);
    EXPECT_EQ(world.after(plainKey(Key::down)), std::pair(6, 1));
    EXPECT_EQ(world.after(plainKey(Key::right)), std::pair(6, 2));
    EXPECT_EQ(world.after(plainKey(Key::right)), std::pair(7, 0));
    EXPECT_EQ(world.after(plainKey(Key::left)), std::pair(6, 2));
    EXPECT_EQ(world.after(plainKey(Key::up)), std::pair(5, 2));
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(RangeDrawing, ControlArrowsGoToTheEdges) {
    DrawingWorld world;
    world.begin(RangeKind::block, 5, 2);
    EXPECT_EQ(world.after(ctrlKey(Key::down)), std::pair(30, 2));
    EXPECT_EQ(world.after(ctrlKey(Key::left)), std::pair(30, 1));
    EXPECT_EQ(world.after(ctrlKey(Key::up)), std::pair(1, 1));
    EXPECT_EQ(world.zormod.position.windowFirst, 1);
    EXPECT_EQ(world.after(ctrlKey(Key::right)), std::pair(1, 2));
}

TEST(RangeDrawing, DownIsHeldAtTheLastRecordAndUpBeepsAtTheFirst) {
    DrawingWorld world(3);
    world.begin(RangeKind::records, 2, 0);
    EXPECT_EQ(world.after(plainKey(Key::down)), std::pair(3, 0));
    EXPECT_EQ(world.after(plainKey(Key::down)), std::pair(3, 0));
    EXPECT_EQ(world.beeper.count, 0);
    world.key(ctrlKey(Key::up));
    EXPECT_EQ(world.after(plainKey(Key::up)), std::pair(1, 0));
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(RangeDrawing, PagesAreHalfAWindow) {
    DrawingWorld world;
    world.begin(RangeKind::block, 15, 1);
    ASSERT_EQ(world.zormod.position.windowRows, 20);
    EXPECT_EQ(world.after(plainKey(Key::pageUp)), std::pair(5, 1));
    EXPECT_EQ(world.beeper.count, 0);
    EXPECT_EQ(world.after(plainKey(Key::pageUp)), std::pair(1, 1));
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.after(plainKey(Key::pageDown)), std::pair(11, 1));
    world.key(plainKey(Key::pageDown));
    EXPECT_EQ(world.after(plainKey(Key::pageDown)), std::pair(30, 1));
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(RangeDrawing, APageUpThatEndsOnTheFirstRecordDoesNotBeep) {
    DrawingWorld world;
    world.begin(RangeKind::block, 11, 1);
    EXPECT_EQ(world.after(plainKey(Key::pageUp)), std::pair(1, 1));
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(RangeDrawing, APageDownInARangeOfRecordsStopsTwoShortOfTheEnd) {
    DrawingWorld world;
    world.begin(RangeKind::records, 15, 1);
    EXPECT_EQ(world.after(plainKey(Key::pageDown)), std::pair(25, 1));
    EXPECT_EQ(world.after(plainKey(Key::pageDown)), std::pair(28, 1));
    EXPECT_EQ(world.after(plainKey(Key::pageDown)), std::pair(28, 1));
    DrawingWorld two(2);
    two.begin(RangeKind::records, 2, 1);
    EXPECT_EQ(two.after(plainKey(Key::pageDown)), std::pair(1, 1));
}

TEST(RangeDrawing, FiveItemsToTheLeftBeepBelowTheFirst) {
    DrawingWorld world;
    world.table({{u"ID", u"L", 4}, {u"a", u"L", 4}, {u"b", u"L", 4}, {u"c", u"L", 4}, {u"d", u"L", 4}, {u"e", u"L", 4}},
                {{u"1"}});
    world.show(1);
    world.begin(RangeKind::items, 1, 5);
    EXPECT_EQ(world.after(ctrlShiftKey(Key::t)), std::pair(1, 0));
    EXPECT_EQ(world.beeper.count, 0);
    world.key(Key::right);
    EXPECT_EQ(world.after(ctrlShiftKey(Key::t)), std::pair(1, 0));
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(RangeDrawing, OtherKeysMoveNothingAndAreUsedUp) {
    DrawingWorld world;
    world.begin(RangeKind::block, 5, 1);
    for (const KeyStroke& stroke :
         {plainKey(Key::a), plainKey(Key::del), plainKey(Key::insert), plainKey(Key::home), plainKey(Key::shift),
          shiftKey(Key::down), altKey(Key::down), ctrlKey(Key::t), ctrlKey(Key::a), plainKey(Key::f3)}) {
        EXPECT_EQ(world.drawing.keyDown(stroke), KeyOutcome::taken);
        EXPECT_EQ(std::pair(world.record(), world.item()), std::pair(5, 1));
    }
    EXPECT_EQ(world.drawing.keyDown(plainKey(Key::tab)), KeyOutcome::goesOn);
    EXPECT_EQ(world.drawing.keyDown(shiftKey(Key::tab)), KeyOutcome::goesOn);
    EXPECT_EQ(world.commandsRun(), Spoken());
    EXPECT_EQ(world.range(), (Ends{1, 5, 5, 1, 1}));
}

TEST(RangeDrawing, TheEndOfABlockFollowsTheCursorInBothDirections) {
    DrawingWorld world;
    world.begin(RangeKind::block, 10, 1);
    for (int i = 0; i < 5; ++i) {
        world.key(Key::up);
    }
    world.key(Key::left);
    EXPECT_EQ(world.fields(), (Spoken{"10", "5", "1", "0"}));
    EXPECT_EQ(world.range(), (Ends{1, 10, 5, 1, 0}));
    EXPECT_EQ(world.mask(MaskKind::block), (Ends{5, 10, 0, 1}));
}

TEST(RangeDrawing, ARangeOfRecordsFollowsRecordsAndOneOfItemsFollowsItems) {
    DrawingWorld world;
    world.begin(RangeKind::records, 10, 1);
    world.key(Key::down);
    world.key(Key::right);
    EXPECT_EQ(world.range(), (Ends{2, 10, 11, 0, 2}));
    EXPECT_EQ(world.mask(MaskKind::wholes), (Ends{10, 11, 0, 2}));
    world.begin(RangeKind::items, 10, 1);
    world.key(Key::down);
    world.key(Key::right);
    EXPECT_EQ(world.range(), (Ends{3, 1, 30, 1, 2}));
    EXPECT_EQ(world.mask(MaskKind::wholes), (Ends{1, 30, 1, 2}));
}

TEST(RangeDrawing, RightBehindTheLastCellLeadsToTheNewRecordButNotTheRange) {
    DrawingWorld world(3);
    world.begin(RangeKind::block, 3, 2);
    EXPECT_EQ(world.after(plainKey(Key::right)), std::pair(4, 0));
    EXPECT_EQ(world.range(), (Ends{1, 3, 3, 2, 0}));
    EXPECT_EQ(world.after(plainKey(Key::down)), std::pair(3, 0));
    EXPECT_EQ(world.recordsOnDisk(), 3u);
}

TEST(RangeDrawing, RightVisitsTheItemsChosenForInput) {
    DrawingWorld world;
    world.begin(RangeKind::items, 1, 0);
    world.zormod.input.allItemsInput = 0;
    world.zormod.items.itemInputMark[2] = 1;
    EXPECT_EQ(world.after(plainKey(Key::right)), std::pair(1, 2));
}

TEST(RangeDrawing, AHeldKeyGoesOnBeyondTheWindow) {
    DrawingWorld world(300);
    world.begin(RangeKind::records, 1, 0);
    for (int i = 0; i < 250; ++i) {
        world.drawing.keyDown(plainKey(Key::down));
    }
    EXPECT_EQ(world.record(), 251);
    for (int i = 0; i < 200; ++i) {
        world.drawing.keyDown(plainKey(Key::up));
    }
    EXPECT_EQ(world.record(), 51);
    EXPECT_EQ(world.beeper.count, 0);
    world.drawing.keyUp(plainKey(Key::up));
    EXPECT_EQ(world.fields(), (Spoken{"1", "51", "0", "2"}));
    EXPECT_EQ(world.cell(1), "n51       ");
}

TEST(RangeDrawing, AStepOfABlockIsToldWithTheCellAndBothPairsOfEnds) {
    DrawingWorld world(30, 2);
    world.begin(RangeKind::block, 10, 1);
    EXPECT_EQ(world.key(Key::up),
              Spoken{"ｷﾞｮｳ9 ｺｳﾓｸ1 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータはn9．ﾞｮｳ10から9 および.ｺｳﾓｸ1から1のﾀｲｶｸﾊﾝｲ指定ずみ"});
    EXPECT_EQ(
        world.key(Key::right),
        Spoken{"ｷﾞｮｳ9 ｺｳﾓｸ2 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータはブランク．ﾞｮｳ10から9 および.ｺｳﾓｸ1から2のﾀｲｶｸﾊﾝｲ指定ずみ"});
}

TEST(RangeDrawing, AStepOfRecordsIsToldWithTheRecords) {
    DrawingWorld world;
    world.begin(RangeKind::records, 10, 1);
    EXPECT_EQ(world.key(Key::down), Spoken{"ｷﾞｮｳ11.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータはn11．ｷﾞｮｳ10から11指定ずみ"});
    EXPECT_EQ(world.key(Key::left), Spoken{"ｷﾞｮｳ11.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータはブランク．ｷﾞｮｳ10から11指定ずみ"});
}

TEST(RangeDrawing, AStepOfItemsIsToldWithTheItems) {
    DrawingWorld world;
    world.begin(RangeKind::items, 10, 2);
    EXPECT_EQ(world.key(Key::left), Spoken{"ｺｳﾓｸ1.ｺｳﾓｸﾊﾝｲ指定中．今のセルデータはn10．ｺｳﾓｸ2から1指定ずみ"});
    EXPECT_EQ(world.key(Key::up), Spoken{"ｺｳﾓｸ1.ｺｳﾓｸﾊﾝｲ指定中．今のセルデータはn9．ｺｳﾓｸ2から1指定ずみ"});
}

TEST(RangeDrawing, AnyKeyLetGoSaysTheStatusAlsoTheOpeningOne) {
    DrawingWorld world;
    world.begin(RangeKind::records, 2, 1);
    world.drawing.keyUp(altKey(Key::down));
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｷﾞｮｳ2.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータはn2．ｷﾞｮｳ2から2指定ずみ"});
    EXPECT_EQ(world.key(Key::x).size(), 1u);
    EXPECT_EQ(world.key(ctrlShiftKey(Key::s)).size(), 1u);
    EXPECT_EQ(world.record(), 2);
}

TEST(RangeDrawing, TheStatusKeysSpeakAtOnce) {
    DrawingWorld world;
    world.begin(RangeKind::records, 2, 1);
    for (const KeyStroke& stroke : {ctrlShiftKey(Key::s), shiftKey(Key::pageDown)}) {
        world.later();
        world.drawing.keyDown(stroke);
        EXPECT_EQ(world.takeSpoken(), Spoken{"ｷﾞｮｳ2.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータはn2．ｷﾞｮｳ2から2指定ずみ"});
    }
}

TEST(RangeDrawing, CtrlShiftDSaysTheCell) {
    DrawingWorld world;
    world.begin(RangeKind::block, 2, 1);
    EXPECT_EQ(world.key(ctrlShiftKey(Key::d)), Spoken{"n2        。ギョウ2 項目1氏名"});
}

TEST(RangeDrawing, CtrlShiftQSaysTheDataOfTheRangeInTheOrderOfTheTable) {
    DrawingWorld world;
    world.begin(RangeKind::block, 3, 1);
    world.key(Key::up);
    world.key(Key::right);
    EXPECT_EQ(world.key(ctrlShiftKey(Key::q)), Spoken{" ｷﾞｮｳ2 n2            ｷﾞｮｳ3 n3           "});
}

TEST(RangeDrawing, KeysThatEveryFormAnswersAtKeyDownAreSilentWhenLetGo) {
    DrawingWorld world;
    world.begin(RangeKind::block, 2, 1);
    for (const KeyStroke& stroke : {altKey(Key::m), altKey(Key::n), ctrlShiftKey(Key::a),
                                    ctrlShiftKey(Key::keypad1)}) {
        EXPECT_EQ(world.key(stroke), Spoken());
    }
}

TEST(RangeDrawing, TheBoxesOfThePanelFollowWithoutAWord) {
    DrawingWorld world(30, 2);
    world.begin(RangeKind::block, 2, 1);
    EXPECT_EQ(world.key(Key::down).size(), 1u);
    EXPECT_EQ(utf8(world.edit.txtREC.text()), " 3");
    EXPECT_EQ(world.screen.focusCalls, 0);
    EXPECT_GT(world.screen.redraws, 0);
    EXPECT_EQ(world.zormod.speech.speechMode, 2);
}

TEST(RangeDrawing, NothingGoesToTheDisk) {
    DrawingWorld world;
    world.begin(RangeKind::block, 5, 1);
    const std::string before = world.bytesOf("t.txt");
    world.zormod.window.recordWindow[currentSlot(world.zormod)].replace(4, 3, "xyz");
    for (const Key key : {Key::down, Key::right, Key::up, Key::left, Key::pageDown, Key::pageUp}) {
        world.key(key);
    }
    EXPECT_EQ(world.bytesOf("t.txt"), before);
}

TEST(RangeDrawing, CtrlHAsksForAnItemAndSaysTheStep) {
    DrawingWorld world;
    world.begin(RangeKind::block, 5, 1);
    world.later();
    world.dialogs.texts = {u"９９９", u"-1", u""};
    world.drawing.keyDown(ctrlKey(Key::h));
    EXPECT_EQ(utf8(world.dialogs.questions.at(0).title), "指定項目へ移動");
    EXPECT_EQ(world.fields(), (Spoken{"5", "5", "1", "2"}));
    EXPECT_EQ(
        world.takeSpoken(),
        Spoken{"ｷﾞｮｳ5 ｺｳﾓｸ2 .ﾀｲｶｸﾊﾝｲ指定中．今のセルデータはブランク．ﾞｮｳ5から5 および.ｺｳﾓｸ1から2のﾀｲｶｸﾊﾝｲ指定ずみ"});
    world.drawing.keyDown(ctrlKey(Key::h));
    EXPECT_EQ(world.item(), 1);
    world.later();
    world.drawing.keyDown(ctrlKey(Key::h));
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.takeSpoken().size(), 1u);
    EXPECT_EQ(utf8(world.zormod.taskWord), "HTYU");
    EXPECT_EQ(world.beeper.count, 0);
}

TEST(RangeDrawing, CtrlJAsksForARecordAndIgnoresWhatIsBelowOne) {
    DrawingWorld world;
    world.begin(RangeKind::records, 5, 1);
    world.dialogs.texts = {u"+3", u"0", u"-99", u"99999999999", u""};
    world.later();
    world.drawing.keyDown(ctrlKey(Key::j));
    EXPECT_EQ(utf8(world.dialogs.questions.at(0).title), "指定記録へ移動");
    EXPECT_EQ(world.fields(), (Spoken{"5", "8", "0", "2"}));
    EXPECT_EQ(world.takeSpoken(), Spoken{"ｷﾞｮｳ8.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータはn8．ｷﾞｮｳ5から8指定ずみ"});
    world.drawing.keyDown(ctrlKey(Key::j));
    world.drawing.keyDown(ctrlKey(Key::j));
    EXPECT_EQ(world.record(), 8);
    world.drawing.keyDown(ctrlKey(Key::j));
    EXPECT_EQ(world.record(), 30);
    EXPECT_EQ(world.cell(1), "n30       ") << "the window has followed";
    world.drawing.keyDown(ctrlKey(Key::j));
    EXPECT_EQ(world.record(), 30);
    EXPECT_EQ(world.beeper.count, 0);
    EXPECT_EQ(utf8(world.zormod.taskWord), "HTYU");
}

TEST(RangeDrawing, CtrlInsMakesTheClipFileOfTheRangeAsItStandsAndGivesItUp) {
    DrawingWorld world;
    world.begin(RangeKind::block, 5, 2);
    world.key(Key::up);
    world.key(Key::left);
    Ends seen;
    world.commands.onRun = [&] { seen = world.range(); };
    world.drawing.keyDown(ctrlKey(Key::insert));
    EXPECT_EQ(world.commandsRun(), Spoken{"mnuCLIP"});
    EXPECT_EQ(seen, (Ends{1, 5, 4, 2, 1}));
    EXPECT_EQ(world.range(), (Ends{0, 0, 0, 0, 0}));
    EXPECT_EQ(world.zormod.taskWord, Text());
    EXPECT_FALSE(world.forms.isLoaded(u"frmHANI"));
}

TEST(RangeDrawing, EnterPutsTheEndsInOrderAndGoesBackToTheInputBox) {
    DrawingWorld world;
    world.begin(RangeKind::block, 10, 2);
    for (int i = 0; i < 5; ++i) {
        world.key(Key::up);
    }
    world.key(Key::left);
    world.forget();
    world.zormod.input.idAutoOn = 1;
    world.drawing.finish();
    EXPECT_EQ(world.range(), (Ends{1, 5, 10, 1, 2}));
    EXPECT_EQ(world.zormod.taskWord, Text());
    EXPECT_FALSE(world.forms.isLoaded(u"frmHANI"));
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.mask(MaskKind::block), (Ends{5, 10, 1, 2}));
    EXPECT_GT(world.screen.redraws, 0);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(RangeDrawing, EnterBeforeAnArrowIsLetGoFixesWhatTheFieldsShow) {
    DrawingWorld world;
    world.begin(RangeKind::records, 5, 0);
    world.drawing.keyDown(plainKey(Key::down));
    EXPECT_EQ(world.record(), 6);
    world.drawing.finish();
    EXPECT_EQ(world.fields(), (Spoken{"5", "5", "0", "2"}));
    EXPECT_EQ(world.range(), (Ends{2, 5, 5, 0, 2}));
}

TEST(RangeDrawing, EscGivesTheRangeUp) {
    DrawingWorld world;
    world.begin(RangeKind::items, 10, 2);
    world.zormod.input.idAutoOn = 1;
    world.drawing.cancel();
    EXPECT_EQ(world.range(), (Ends{0, 0, 0, 0, 0}));
    EXPECT_EQ(world.zormod.taskWord, Text());
    EXPECT_TRUE(world.screen.masks.empty());
    EXPECT_FALSE(world.forms.isLoaded(u"frmHANI"));
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_GT(world.screen.redraws, 0);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}

TEST(RangeDrawing, AFormThatClosesByItselfGivesTheRangeUpOnce) {
    DrawingWorld world;
    world.begin(RangeKind::block, 10, 2);
    world.drawing.closing();
    EXPECT_EQ(world.range(), (Ends{0, 0, 0, 0, 0}));
    EXPECT_EQ(world.zormod.taskWord, Text());
    world.begin(RangeKind::block, 10, 2);
    world.drawing.finish();
    world.drawing.closing();
    EXPECT_EQ(world.range(), (Ends{1, 10, 10, 2, 2}));
}

TEST(RangeDrawing, AKeyAfterAnotherOperationHasTakenTheTaskWordGivesTheRangeUp) {
    DrawingWorld world;
    world.begin(RangeKind::block, 10, 2);
    world.zormod.taskWord = u"srch";
    EXPECT_EQ(world.key(Key::down), Spoken());
    EXPECT_EQ(world.record(), 10);
    EXPECT_EQ(world.range(), (Ends{0, 0, 0, 0, 0}));
    EXPECT_EQ(utf8(world.zormod.taskWord), "srch");
    EXPECT_FALSE(world.forms.isLoaded(u"frmHANI"));
}

TEST(RangeDrawing, TheInputBoxHandsTheFocusOn) {
    DrawingWorld world;
    world.begin(RangeKind::block, 10, 2);
    world.forms.opened.clear();
    world.shown = {};
    world.drawing.takeFocus();
    EXPECT_EQ(utf8(world.forms.opened), Spoken{"frmHANI"});
    EXPECT_EQ(world.fields(), (Spoken{"10", "10", "2", "2"}));
}

TEST(RangeDrawing, WithSpeechOffAStepIsTakenAndNothingSaid) {
    DrawingWorld world(30, 0);
    world.begin(RangeKind::block, 10, 1);
    EXPECT_EQ(world.key(Key::down), Spoken());
    EXPECT_EQ(world.range(), (Ends{1, 10, 11, 1, 1}));
}

TEST(RangeDrawing, ARecordWithNothingElsePressedIsARangeOfOne) {
    DrawingWorld world;
    world.begin(RangeKind::records, 1, 0);
    world.drawing.keyUp(altKey(Key::down));
    world.drawing.finish();
    EXPECT_EQ(world.range(), (Ends{2, 1, 1, 0, 2}));
    world.down(plainKey(Key::del));
    EXPECT_EQ(world.commandsRun(), Spoken{"menuRKILL"});
}

} // namespace
