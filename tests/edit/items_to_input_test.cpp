#include "edit/items_to_input.h"

#include "edit/edit_world.h"
#include "edit/movement.h"

namespace {

struct ChoiceWorld : EditWorld {
    explicit ChoiceWorld(std::int16_t speechMode = 0) {
        table({{u"ID", u"L", 4}, {u"a", u"L", 4}, {u" 氏名 ", u"L", 6}, {u"c", u"R", 3}}, {{u"1", u"x"}, {u"2", u"y"}});
        show(speechMode);
    }
    std::string marks() const {
        std::string found;
        for (int item = 0; item <= 3; ++item) {
            found += zormod.items.itemInputMark[item] == 1 ? 'Y' : '-';
        }
        return found;
    }
    std::string label() const { return utf8(edit.Label11); }
    int all() const { return zormod.input.allItemsInput; }
    void choose(std::initializer_list<int> items) {
        ItemsToInput choice(edit);
        for (const int item : items) {
            choice.toggle(item);
        }
        choice.accept();
    }
};

} // namespace

TEST(ItemsToInput, EachItemHasALineWithAColumnForItsMark) {
    ChoiceWorld world;
    ItemsToInput choice(world.edit);
    EXPECT_EQ(choice.count(), 4);
    EXPECT_EQ(utf8(choice.line(2)), "     2 氏名");
    choice.toggle(2);
    EXPECT_EQ(utf8(choice.line(2)), "Y    2 氏名");
    EXPECT_EQ(utf8(choice.spokenLine(2)), "2 氏名､.指定");
    EXPECT_EQ(utf8(choice.spokenLine(0)), "0 ID");
}

TEST(ItemsToInput, AMarkIsSetAndTakenAwayAndSaid) {
    ChoiceWorld world(1);
    ItemsToInput choice(world.edit);
    choice.toggle(2);
    EXPECT_EQ(world.marks(), "--Y-");
    world.later();
    choice.toggle(2);
    EXPECT_EQ(world.marks(), "----");
    EXPECT_EQ(world.takeSpoken(), (Spoken{"2 氏名､.指定", "2 氏名､.指定解除"}));
    choice.toggle(-1);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(world.marks(), "----");
}

TEST(ItemsToInput, TheTextsOfTheForm) {
    EXPECT_EQ(
        utf8(ItemsToInput::instruction()),
        "↑↓で項目を移動してＹ又はその他のキーをﾀｯﾁするか、ｸﾘｯｸする事で項目指定が出来ます。その後OKﾎﾞﾀﾝを｡中止はescを｡"
        "以後､ｾﾙ記入が終われば自動的に､指定項目にｶｰｿﾙが移動します｡");
    EXPECT_EQ(utf8(ItemsToInput::openingText()),
              utf8(ItemsToInput::instruction()) + "。記入項目の指定フォームが開かれました。特定の記入項目を指定します");
}

TEST(ItemsToInput, OpeningTheFormTakesAllItemsBackAndTheColourAway) {
    ChoiceWorld world;
    const ItemsToInput choice(world.edit);
    EXPECT_EQ(world.all(), 0);
    EXPECT_EQ(world.screen.grounds.at(PanelField::Label11), LabelGround::plain);
}

TEST(ItemsToInput, OkShowsTheNumbersJoinedByCommas) {
    ChoiceWorld world;
    world.stand(1, 3);
    world.choose({3, 1});
    EXPECT_EQ(world.label(), "1,3");
    EXPECT_EQ(world.all(), 0);
    EXPECT_EQ(world.item(), 3) << "a chosen item stays the current one";
    nextItem(world.edit);
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.label(), "1,3,") << "the status update writes them in its own way";
}

TEST(ItemsToInput, AnItemThatIsNotChosenGivesWayToTheFirstChosenOne) {
    ChoiceWorld world(1);
    world.stand(1, 2);
    world.type(u"zz");
    world.forget();
    world.choose({3, 1});
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.cell(2), "zz    ");
    EXPECT_EQ(world.typed(), "");
    EXPECT_EQ(world.label(), "1,3");
    EXPECT_EQ(world.screen.redraws, 1);
}

TEST(ItemsToInput, TheLastItemMayBeTheOnlyChosenOne) {
    ChoiceWorld world;
    world.choose({3});
    EXPECT_EQ(world.item(), 3);
    EXPECT_EQ(world.label(), "3");
}

TEST(ItemsToInput, WhatIsTypedInAChosenItemStays) {
    ChoiceWorld world;
    world.stand(1, 2);
    world.type(u"zz");
    world.choose({2});
    EXPECT_EQ(world.typed(), "zz");
    EXPECT_EQ(world.cell(2), "      ");
}

TEST(ItemsToInput, EnterThenGoesFromChosenItemToChosenItem) {
    ChoiceWorld world;
    world.choose({1, 3});
    EXPECT_EQ(world.item(), 1);
    world.enter();
    EXPECT_EQ(world.item(), 3);
    world.enter();
    EXPECT_EQ(world.item(), 1);
    EXPECT_EQ(world.record(), 2);
}

TEST(ItemsToInput, OkWithoutAMarkMeansAllItems) {
    ChoiceWorld world;
    world.choose({2, 2});
    EXPECT_EQ(world.all(), 1);
    EXPECT_EQ(world.label(), "全項目");
    EXPECT_EQ(world.item(), 0);
}

TEST(ItemsToInput, GivingUpLeavesEverythingAsItWas) {
    ChoiceWorld world;
    {
        ItemsToInput choice(world.edit);
        choice.toggle(1);
        choice.cancel();
    }
    EXPECT_EQ(world.all(), 1);
    EXPECT_EQ(world.marks(), "----");
    world.choose({1});
    {
        ItemsToInput choice(world.edit);
        choice.toggle(1);
        choice.toggle(2);
        choice.cancel();
    }
    EXPECT_EQ(world.all(), 0);
    EXPECT_EQ(world.marks(), "-Y--");
}

TEST(ItemsToInput, TheChoiceStartsFromTheMarksOfTheLastOne) {
    ChoiceWorld world;
    world.choose({1});
    world.choose({2});
    EXPECT_EQ(world.marks(), "-YY-");
}

TEST(ItemsToInput, TheMenuEntryOpensTheForm) {
    ChoiceWorld world;
    mnuItem(world.edit);
    EXPECT_TRUE(world.forms.isLoaded(u"Form5"));
    EXPECT_EQ(world.screen.focusCalls, 1) << "the input box says that it is back";
}

TEST(ItemsToInput, AllItemsAreTakenBackWithTheirOwnLabel) {
    ChoiceWorld world;
    world.choose({1});
    world.type(u"q");
    world.forget();
    mnuWHOLE(world.edit);
    EXPECT_EQ(world.all(), 1);
    EXPECT_EQ(world.screen.redraws, 1);
    EXPECT_EQ(world.label(), "全項目(0～3)");
    EXPECT_EQ(world.typed(), "q");
    EXPECT_EQ(world.marks(), "-Y--");
    world.press(Key::down);
    EXPECT_EQ(world.label(), "全項目");
}

TEST(ItemsToInput, TheLabelTogglesBetweenTheFormAndAllItems) {
    ChoiceWorld world;
    world.forms.scripts[u"Form5"] = [&] { world.choose({2}); };
    toggleItemsToInput(world.edit);
    EXPECT_EQ(world.all(), 0);
    EXPECT_EQ(world.forms.opened.size(), 1U);
    toggleItemsToInput(world.edit);
    EXPECT_EQ(world.all(), 1);
    EXPECT_EQ(world.label(), "全項目(0～3)");
    EXPECT_EQ(world.forms.opened.size(), 1U);
}

TEST(ItemsToInput, WhileATaskRunsTheLabelOnlyBeeps) {
    ChoiceWorld world;
    world.zormod.taskWord = u"srch";
    toggleItemsToInput(world.edit);
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_TRUE(world.forms.opened.empty());
    EXPECT_EQ(world.all(), 1);
}

TEST(ItemsToInput, OpeningATableTakesAllItemsAndClearsTheMarks) {
    ChoiceWorld world;
    world.choose({1});
    world.openTable("t.txt");
    world.show();
    EXPECT_EQ(world.all(), 1);
    EXPECT_EQ(world.marks(), "----");
    EXPECT_EQ(world.label(), "全項目(0～3)");
}

TEST(ItemsToInput, WithoutATableEachRoadBeeps) {
    EditWorld world;
    mnuItem(world.edit);
    mnuWHOLE(world.edit);
    toggleItemsToInput(world.edit);
    EXPECT_EQ(world.beeper.count, 3);
    EXPECT_TRUE(world.forms.opened.empty());
}
