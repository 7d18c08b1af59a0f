#include "edit/pinned_item.h"

#include "edit/edit_world.h"

namespace {

struct PinWorld : EditWorld {
    explicit PinWorld(std::int16_t speechMode = 0) {
        people({{u"1", u"山田", u"30"}, {u"2", u"佐藤", u"41"}}, speechMode);
    }
    int pinned() const { return zormod.input.pinnedItem; }
    bool isShown() const { return forms.isLoaded(u"frmSPITEM"); }
    std::string caption() const { return utf8(edit.pinnedCaption.text()); }
    std::string data() const { return utf8(edit.pinnedCell.text()); }
    void ask(std::deque<Text> answers) {
        dialogs.texts = std::move(answers);
        mnuSPITEM(edit);
    }
};

} // namespace

TEST(PinnedItem, TheMenuAsksForTheItemAndPinsIt) {
    PinWorld world(1);
    world.stand(2, 2);
    world.ask({u"1"});
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "常時ﾃﾞｰﾀ表示項目の設定");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt),
              "指定項目ﾃﾞｰﾀを｡常時表示します｡ﾃﾞｰﾀ入力時参照のために使って下さい｡\r"
              "この機能は｢項目番号｣ﾗﾍﾞﾙをWｸﾘｯｸしても実行できます｡");
    EXPECT_EQ(utf8(world.dialogs.questions[0].defaultText), "2");
    EXPECT_EQ(world.pinned(), 1);
    EXPECT_TRUE(world.isShown());
    EXPECT_EQ(world.caption(), "1項目:氏名");
    EXPECT_EQ(world.data(), "佐藤");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(PinnedItem, TheTitleHoldsFortyCharactersOfTheName) {
    PinWorld world;
    world.zormod.items.itemName[1] = u" " + Text(45, u'あ');
    world.ask({u"1"});
    EXPECT_EQ(world.caption(), "1項目:" + utf8(Text(40, u'あ')));
}

TEST(PinnedItem, ItemZeroCanBePinnedByTheMenu) {
    PinWorld world;
    world.ask({u"0"});
    EXPECT_EQ(world.pinned(), 0);
    EXPECT_TRUE(world.isShown());
    EXPECT_EQ(world.data(), "1");
}

TEST(PinnedItem, AnAnswerIsTakenInEitherWidth) {
    PinWorld world;
    world.ask({u" ２ "});
    EXPECT_EQ(world.pinned(), 2);
}

TEST(PinnedItem, AnItemThatIsNotThereBeepsAndIsAskedForAgain) {
    PinWorld world;
    world.ask({u"3", u"-1", u"99999", u"2"});
    EXPECT_EQ(world.dialogs.questions.size(), 4U);
    EXPECT_EQ(world.beeper.count, 3);
    EXPECT_EQ(world.pinned(), 2);
}

TEST(PinnedItem, AnEmptyAnswerEndsTheAsking) {
    PinWorld world;
    world.forget();
    world.ask({u"3", u""});
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.pinned(), -1);
    EXPECT_FALSE(world.isShown());
    EXPECT_EQ(world.screen.focusCalls, 1) << "the input box says that it is back";
}

TEST(PinnedItem, TheMenuUnpinsWithoutAsking) {
    PinWorld world;
    world.ask({u"1"});
    world.forget();
    mnuSPITEM(world.edit);
    EXPECT_EQ(world.pinned(), -1);
    EXPECT_FALSE(world.isShown());
    EXPECT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(world.screen.redraws, 1);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}

TEST(PinnedItem, EachMoveBringsTheDataOfTheNewRecord) {
    PinWorld world;
    world.ask({u"1"});
    EXPECT_EQ(world.data(), "山田");
    world.press(Key::down);
    EXPECT_EQ(world.data(), "佐藤");
    world.press(Key::up);
    EXPECT_EQ(world.data(), "山田");
}

TEST(PinnedItem, WhatIsTypedStays) {
    PinWorld world;
    world.type(u"ab");
    world.ask({u"1"});
    mnuSPITEM(world.edit);
    EXPECT_EQ(world.typed(), "ab");
}

TEST(PinnedItem, TheFirstDoubleClickOfARunPinsNothing) {
    PinWorld world;
    world.stand(1, 2);
    togglePinnedByClick(world.edit);
    EXPECT_EQ(world.pinned(), 0);
    EXPECT_FALSE(world.isShown());
    EXPECT_EQ(world.beeper.count, 0);
    togglePinnedByClick(world.edit);
    EXPECT_EQ(world.pinned(), 2);
    EXPECT_TRUE(world.isShown());
    EXPECT_EQ(world.caption(), "2項目:年齢");
    EXPECT_EQ(world.data(), "30");
    togglePinnedByClick(world.edit);
    EXPECT_EQ(world.pinned(), 0);
    EXPECT_FALSE(world.isShown());
    EXPECT_TRUE(world.dialogs.questions.empty());
}

TEST(PinnedItem, OnItemZeroADoubleClickBeeps) {
    PinWorld world;
    togglePinnedByClick(world.edit);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.pinned(), -1);
    world.ask({u"1"});
    togglePinnedByClick(world.edit);
    EXPECT_EQ(world.beeper.count, 2);
    EXPECT_EQ(world.pinned(), 1) << "nor does it unpin there";
}

TEST(PinnedItem, TheNumberThatADoubleClickLeavesBehindIsAPinnedItemToTheMenu) {
    PinWorld world;
    world.stand(1, 1);
    togglePinnedByClick(world.edit);
    mnuSPITEM(world.edit);
    EXPECT_EQ(world.pinned(), -1);
    EXPECT_TRUE(world.dialogs.questions.empty());
}

TEST(PinnedItem, ClosingTheFormByItselfUnpins) {
    PinWorld world;
    world.ask({u"0"});
    world.forget();
    pinnedFormClosed(world.edit);
    EXPECT_EQ(world.pinned(), -1);
    EXPECT_EQ(world.screen.redraws, 1);
    EXPECT_EQ(world.screen.focusCalls, 1);
    pinnedFormClosed(world.edit);
    EXPECT_EQ(world.screen.redraws, 1) << "it was unpinned already";
}

TEST(PinnedItem, ATableThatEndsBeforeTheItemUnpinsIt) {
    PinWorld world;
    world.ask({u"2"});
    world.table({{u"ID", u"L", 4}, {u"x", u"L", 4}}, {{u"1", u"a"}});
    world.show();
    EXPECT_EQ(world.pinned(), -1);
    EXPECT_FALSE(world.isShown());
}

TEST(PinnedItem, ATableWithTheItemShowsItUnderItsOwnName) {
    PinWorld world;
    world.ask({u"1"});
    world.table({{u"ID", u"L", 4}, {u"x", u"L", 4}}, {{u"1", u"a"}});
    world.show();
    EXPECT_TRUE(world.isShown());
    EXPECT_EQ(world.caption(), "1項目:x");
    EXPECT_EQ(world.data(), "a");
}

TEST(PinnedItem, WithoutATableEitherRoadBeeps) {
    EditWorld world;
    mnuSPITEM(world.edit);
    togglePinnedByClick(world.edit);
    EXPECT_EQ(world.beeper.count, 2);
    EXPECT_EQ(world.zormod.input.pinnedItem, -1);
}
