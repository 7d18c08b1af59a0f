#include "structure/design_world.h"

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

struct TypingWorld : DesignWorld {
    TypingWorld() {
        newDesign();
        zormod.speech.speechMode = 2;
    }
    void stand(int row, DesignColumn column) { standOnDesignCell(*design, row, column); }
};

TEST(DesignTyping, EnterGoesThroughTheColumnsAndTellsWhatIsWanted) {
    TypingWorld world;
    resizeDesign(*world.design, 1);
    world.type(u"ID");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("項目0の配置を示すRまたはＬを入力してください"));
    world.type(u" l ");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("項目0の項目幅を入力してください"));
    world.type(u"４");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("項目1の項目名を記入してください"));
    EXPECT_EQ(world.design->rows.at(0), (DesignRow{u"ID", u"L", u"4"}));
    EXPECT_EQ(world.design->row, 1);
}

TEST(DesignTyping, ANameOf254BytesIsTakenAndOneMoreRefused) {
    TypingWorld world;
    world.type(Text(127, u'あ'));
    EXPECT_EQ(world.design->rows[0].name.size(), 127U);
    world.stand(0, DesignColumn::name);
    world.takeSpoken();
    world.expectMessage();
    world.type(Text(127, u'あ') + u"a");
    EXPECT_EQ(world.message().first, "項目名は254文字以内に押さえて下さい");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("再入力、項目名は254文字以内。"));
    EXPECT_EQ(world.design->column, DesignColumn::name);
    EXPECT_EQ(world.design->rows[0].name.size(), 127U);
}

TEST(DesignTyping, OnlyLAndRAreAlignments) {
    TypingWorld world;
    for (const TextView wrong : {u"", u"C", u"LR", u"Ｌ"}) {
        world.stand(0, DesignColumn::align);
        world.takeSpoken();
        world.expectMessage();
        world.type(Text(wrong));
        EXPECT_EQ(world.message().first, "Ｌ(左詰め指定)かＲ(右詰め指定）のみを入力して下さい");
        EXPECT_THAT(world.takeSpoken(), ElementsAre("再入力、ＬかＲのみ記入。"));
    }
    world.stand(0, DesignColumn::align);
    world.type(u"r");
    EXPECT_EQ(world.design->rows[0].align, u"R");
}

TEST(DesignTyping, WidthsAreFrom1To254) {
    TypingWorld world;
    for (const auto& [typed, text, speech] :
         {std::tuple(u"255", "項目幅が長すぎます", "再入力、項目幅が長い。"),
          std::tuple(u"99999", "項目幅が長すぎます", "再入力、項目幅が長い。"),
          std::tuple(u"0", "項目幅は１以上を指定して下さい", "再入力、項目幅は１以上を。"),
          std::tuple(u"", "項目幅は１以上を指定して下さい", "再入力、項目幅は１以上を。"),
          std::tuple(u"-1", "項目幅は１以上を指定して下さい", "再入力、項目幅は１以上を。")}) {
        world.stand(0, DesignColumn::width);
        world.takeSpoken();
        world.expectMessage();
        world.type(typed);
        EXPECT_EQ(world.message().first, text);
        EXPECT_THAT(world.takeSpoken(), ElementsAre(speech));
    }
    resizeDesign(*world.design, 1);
    for (const char16_t* width : {u"1", u"254"}) {
        world.stand(0, DesignColumn::width);
        world.type(width);
        EXPECT_EQ(world.design->rows[0].width, width);
    }
}

TEST(DesignTyping, TheArrowsMoveAndTakeAChangedTextAlong) {
    TypingWorld world;
    resizeDesign(*world.design, 2);
    world.type(u"ID", plainKey(Key::down));
    EXPECT_EQ(world.design->rows[0].name, u"ID");
    EXPECT_THAT(world.takeSpoken(), ElementsAre("項目1の項目名を記入してください"));
    world.key(plainKey(Key::right));
    EXPECT_EQ(world.design->column, DesignColumn::align);
    world.key(plainKey(Key::up));
    EXPECT_EQ(world.design->row, 0);
    world.key(plainKey(Key::left));
    EXPECT_EQ(world.design->column, DesignColumn::name);
    EXPECT_EQ(world.design->itemin, u"ID");
    world.stand(1, DesignColumn::width);
    world.key(plainKey(Key::right));
    EXPECT_EQ(std::pair(world.design->row, world.design->column), std::pair(2, DesignColumn::name));
    world.key(plainKey(Key::left));
    EXPECT_EQ(std::pair(world.design->row, world.design->column), std::pair(1, DesignColumn::width));
}

TEST(DesignTyping, UpAndTheArrowsToTheSidesTakeAChangedTextAlongToo) {
    TypingWorld world;
    resizeDesign(*world.design, 1);
    world.stand(1, DesignColumn::name);
    world.type(u"up", plainKey(Key::up));
    EXPECT_EQ(world.design->row, 0);
    EXPECT_EQ(world.design->rows[1].name, u"up");
    world.stand(1, DesignColumn::name);
    world.type(u"right", plainKey(Key::right));
    EXPECT_EQ(world.design->column, DesignColumn::align);
    EXPECT_EQ(world.design->rows[1].name, u"right");
    world.stand(1, DesignColumn::name);
    world.design->itemin = u"left";
    EXPECT_EQ(itemInKeyDown(*world.design, plainKey(Key::left), {u"left", 0, 0, 0}), KeyOutcome::taken);
    EXPECT_EQ(std::pair(world.design->row, world.design->column), std::pair(0, DesignColumn::width));
    EXPECT_EQ(world.design->rows[1].name, u"left");
}

TEST(DesignTyping, AWrongTextHoldsTheArrows) {
    TypingWorld world;
    resizeDesign(*world.design, 1);
    world.stand(0, DesignColumn::align);
    world.expectMessage();
    world.type(u"X", plainKey(Key::down));
    EXPECT_EQ(world.design->row, 0);
    EXPECT_EQ(world.design->itemin, u"X");
}

TEST(DesignTyping, AWrongTextHoldsUpAndTheArrowsToTheSidesToo) {
    for (const Key key : {Key::up, Key::left, Key::right}) {
        TypingWorld world;
        resizeDesign(*world.design, 1);
        world.stand(1, DesignColumn::align);
        world.design->itemin = u"X";
        const int caret = key == Key::left ? 0 : 1;
        world.expectMessage();
        itemInKeyDown(*world.design, plainKey(key), {u"X", caret, caret, 0});
        EXPECT_EQ(world.message().first, "Ｌ(左詰め指定)かＲ(右詰め指定）のみを入力して下さい");
        EXPECT_EQ(std::pair(world.design->row, world.design->column), std::pair(1, DesignColumn::align));
        EXPECT_EQ(world.design->itemin, u"X");
    }
}

TEST(DesignTyping, TheEdgesOfTheGridBeep) {
    TypingWorld world;
    world.key(plainKey(Key::up));
    world.key(plainKey(Key::left));
    world.stand(0, DesignColumn::width);
    world.key(plainKey(Key::right));
    EXPECT_EQ(world.beeper.count, 3);
    EXPECT_THAT(world.takeSpoken(), IsEmpty());
}

TEST(DesignTyping, InsideItsTextTheCaretMovesAndNotTheCell) {
    TypingWorld world;
    world.design->itemin = u"氏名";
    EXPECT_EQ(itemInKeyDown(*world.design, plainKey(Key::left), {u"氏名", 1, 1, 0}), KeyOutcome::goesOn);
    EXPECT_EQ(itemInKeyDown(*world.design, plainKey(Key::right), {u"氏名", 1, 1, 0}), KeyOutcome::goesOn);
    EXPECT_EQ(itemInKeyDown(*world.design, plainKey(Key::right), {u"氏名", 2, 1, 1}), KeyOutcome::goesOn);
    EXPECT_EQ(itemInKeyDown(*world.design, plainKey(Key::right), {u"氏名", 2, 0, 2}), KeyOutcome::taken);
    EXPECT_EQ(world.design->column, DesignColumn::align);
}

TEST(DesignTyping, DownInTheLastRowTellsFirstAndThenMakesARow) {
    TypingWorld world;
    world.expectMessage();
    world.type(u"ID", plainKey(Key::down));
    EXPECT_EQ(world.message(),
              std::pair(std::string("設定された項目数の記入を終えました。項目数を増やす場合は↓を押して下さい。"),
                        std::string("項目数の増加")));
    EXPECT_EQ(lastDesignItem(*world.design), 0);
    world.key(plainKey(Key::down));
    EXPECT_EQ(lastDesignItem(*world.design), 1);
    EXPECT_EQ(world.design->text1, u"1");
    EXPECT_EQ(world.zormod.items.itemCount, 1);
    EXPECT_EQ(world.design->rows[1], DesignRow{});
    EXPECT_THAT(world.takeSpoken(), ElementsAre("項目1の項目名を記入してください"));
}

TEST(DesignTyping, LeavingTheLastRowForgetsThatTheEndWasTold) {
    TypingWorld world;
    resizeDesign(*world.design, 1);
    world.stand(1, DesignColumn::name);
    world.expectMessage();
    world.key(plainKey(Key::down));
    world.key(plainKey(Key::up));
    world.key(plainKey(Key::down));
    world.expectMessage();
    world.key(plainKey(Key::down));
    EXPECT_EQ(lastDesignItem(*world.design), 1);
}

TEST(DesignTyping, EnterInTheLastCellTellsTheEnd) {
    TypingWorld world;
    world.stand(0, DesignColumn::width);
    world.expectMessage();
    world.type(u"5");
    EXPECT_EQ(world.message().second, "項目数の増加");
    EXPECT_EQ(world.design->rows[0].width, u"5");
    world.key(plainKey(Key::down));
    EXPECT_EQ(std::pair(world.design->row, world.design->column), std::pair(1, DesignColumn::name));
}

TEST(DesignTyping, ShiftDownInTheLastRowCopiesIt) {
    TypingWorld world;
    fill(*world.design, {{u"ID", u"L", u"3"}, {u"点", u"R", u"4"}});
    world.stand(1, DesignColumn::width);
    world.type(u"5", shiftKey(Key::down));
    EXPECT_THAT(world.design->rows,
                ElementsAre(DesignRow{u"ID", u"L", u"3"}, DesignRow{u"点", u"R", u"5"}, DesignRow{u"点", u"R", u"5"}));
    EXPECT_EQ(world.design->text1, u"2");
    EXPECT_EQ(std::pair(world.design->row, world.design->column), std::pair(2, DesignColumn::width));
}

TEST(DesignTyping, ShiftDownAboveTheLastRowOnlyMovesDown) {
    TypingWorld world;
    fill(*world.design, {{u"ID", u"L", u"3"}, {u"点", u"R", u"4"}});
    world.key(shiftKey(Key::down));
    EXPECT_EQ(world.design->row, 1);
    EXPECT_THAT(world.design->rows, ElementsAre(DesignRow{u"ID", u"L", u"3"}, DesignRow{u"点", u"R", u"4"}));
}

TEST(DesignTyping, ShiftControlInsertInsertsAnItemAtTheRow) {
    TypingWorld world;
    fill(*world.design, {{u"ID", u"L", u"3"}, {u"点", u"R", u"4"}});
    world.stand(1, DesignColumn::width);
    world.key(ctrlShiftKey(Key::insert));
    EXPECT_THAT(world.design->rows,
                ElementsAre(DesignRow{u"ID", u"L", u"3"}, DesignRow{}, DesignRow{u"点", u"R", u"4"}));
    EXPECT_THAT(world.takeSpoken(),
                ElementsAre("1項目に項目が挿入されました。項目名などを設定してください。"));
    EXPECT_EQ(std::pair(world.design->row, world.design->column), std::pair(1, DesignColumn::name));
}

TEST(DesignTyping, AnInsertionKeepsWhatIsTypedInItsOwnItem) {
    TypingWorld world;
    fill(*world.design, {{u"ID", u"L", u"3"}, {u"点", u"R", u"4"}});
    world.stand(1, DesignColumn::name);
    world.type(u"得点", ctrlShiftKey(Key::insert));
    EXPECT_THAT(world.design->rows,
                ElementsAre(DesignRow{u"ID", u"L", u"3"}, DesignRow{}, DesignRow{u"得点", u"R", u"4"}));
}

TEST(DesignTyping, AWrongTextHoldsAnInsertion) {
    TypingWorld world;
    fill(*world.design, {{u"ID", u"L", u"3"}, {u"点", u"R", u"4"}});
    world.stand(1, DesignColumn::align);
    world.expectMessage();
    world.type(u"X", ctrlShiftKey(Key::insert));
    EXPECT_EQ(world.message().first, "Ｌ(左詰め指定)かＲ(右詰め指定）のみを入力して下さい");
    EXPECT_EQ(world.design->rows.size(), 2U);
    EXPECT_EQ(world.design->itemin, u"X");
}

TEST(DesignTyping, ShiftControlDeleteTakesTheItemOutAndTheRestMovesUp) {
    TypingWorld world;
    fill(*world.design, {{u"ID", u"L", u"3"}, {u"点", u"R", u"4"}, {u"備考", u"L", u"20"}});
    world.stand(1, DesignColumn::name);
    world.key(ctrlShiftKey(Key::del));
    EXPECT_THAT(world.takeSpoken(), ElementsAre("1項目が削除され、以後の項目が前詰めされました。"));
    EXPECT_THAT(world.design->rows, ElementsAre(DesignRow{u"ID", u"L", u"3"}, DesignRow{u"備考", u"L", u"20"}));
    EXPECT_EQ(world.design->itemin, u"備考");
    EXPECT_EQ(world.design->text1, u"1");
    world.key(ctrlShiftKey(Key::del));
    EXPECT_EQ(world.design->row, 0);
    world.key(ctrlShiftKey(Key::del));
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.design->rows.size(), 1U);
}

TEST(DesignTyping, TheGridHasAtMostItem254) {
    TypingWorld world;
    resizeDesign(*world.design, highestItem);
    world.stand(highestItem, DesignColumn::name);
    world.expectMessage();
    world.key(shiftKey(Key::down));
    EXPECT_EQ(world.message().first, "項目数は254以下でなければいけません。");
    world.expectMessage();
    world.key(ctrlShiftKey(Key::insert));
    EXPECT_EQ(world.design->rows.size(), 255U);
}

TEST(DesignTyping, InsertTogglesOverwriting) {
    TypingWorld world;
    world.key(plainKey(Key::insert));
    EXPECT_TRUE(world.design->overwrites);
    world.key(plainKey(Key::insert));
    EXPECT_FALSE(world.design->overwrites);
    EXPECT_EQ(world.key(shiftKey(Key::insert)), KeyOutcome::goesOn);
    EXPECT_FALSE(world.design->overwrites);
}

TEST(DesignTyping, TheMousePicksACellUnlessTheOldOneIsWrong) {
    TypingWorld world;
    resizeDesign(*world.design, 2);
    world.design->itemin = u"ID";
    EXPECT_TRUE(pickDesignCell(*world.design, 2, DesignColumn::align));
    EXPECT_EQ(world.design->rows[0].name, u"ID");
    world.design->itemin = u"X";
    world.expectMessage();
    EXPECT_FALSE(pickDesignCell(*world.design, 0, DesignColumn::name));
    EXPECT_EQ(world.design->row, 2);
    EXPECT_EQ(utf8(cellLabel(*world.design)), "2項目左/右詰");
}

} // namespace
