#include "app/item_commands.h"

#include "edit/edit_world.h"
#include "edit/range_keys.h"

namespace {

/// Three items and two records, and the commands of items as the keys and menus start them.
struct ItemCommandWorld : EditWorld {
    ItemCommandWorld() {
        bindItemCommands(table, edit);
        people({{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}});
        data = bytesOf("t.txt");
        itemFile = bytesOf("kt.txt");
    }
    void select(std::int16_t kind, std::int16_t from, std::int16_t to) {
        zormod.selection = {kind, 1, 2, from, to, 0};
        forget();
    }
    void expectUntouched() const {
        EXPECT_EQ(bytesOf("t.txt"), data);
        EXPECT_EQ(bytesOf("kt.txt"), itemFile);
    }
    /// The range is gone and the user is in the empty input box.
    void expectAtRest() const {
        EXPECT_EQ(zormod.selection.selectionKind, 0);
        EXPECT_EQ(zormod.taskWord, Text());
        EXPECT_EQ(typed(), "");
        EXPECT_EQ(screen.focus, PanelField::txtinputbox);
    }
    std::pair<std::string, std::string> question() {
        EXPECT_EQ(dialogs.questions.size(), 1U);
        const auto asked = dialogs.questions.empty() ? ScriptedDialogs::Question{} : dialogs.questions.back();
        dialogs.questions.clear();
        return {utf8(asked.title), utf8(asked.prompt)};
    }

    CommandTable table;
    std::string data;
    std::string itemFile;
};

using Words = std::pair<std::string, std::string>;

} // namespace

TEST(ItemCommands, InsertingAsksWithOneItemLessThanItInserts) {
    ItemCommandWorld world;
    world.select(3, 2, 1);
    world.dialogs.answers = {Answer::yes};
    world.table.run(u"mnuINSITEM");
    const auto& asked = world.dialogs.questions;
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(world.zormod.items.itemCount, 4);
    EXPECT_EQ(world.onDisk(1, 8), "1     " + world.codePage.encode(u"山"));
    world.expectAtRest();
}

TEST(ItemCommands, ANoInsertsAndDeletesNothing) {
    for (const TextView command : {TextView(u"mnuINSITEM"), TextView(u"mnuKILLITEM")}) {
        for (const Answer answer : {Answer::no, Answer::cancel}) {
            ItemCommandWorld world;
            world.select(3, 1, 1);
            world.dialogs.answers = {answer};
            world.table.run(command);
            EXPECT_EQ(world.dialogs.questions.size(), 1U);
            world.expectUntouched();
            world.expectAtRest();
        }
    }
}

TEST(ItemCommands, WithoutARangeOfItemsTheUserIsToldToChooseOne) {
    for (const std::int16_t kind : {std::int16_t{0}, std::int16_t{1}, std::int16_t{2}}) {
        ItemCommandWorld world;
        world.select(kind, 1, 1);
        world.screen.focusCalls = 0;
        world.dialogs.expectedMessages = 2;
        world.table.run(u"mnuINSITEM");
        world.table.run(u"mnuKILLITEM");
        ASSERT_EQ(world.dialogs.messages.size(), 2U);
        EXPECT_EQ(utf8(world.dialogs.messages[0].title), "項目挿入範囲の指定");
        EXPECT_EQ(utf8(world.dialogs.messages[0].text), "Alt+←→で項目挿入範囲を指定した上で、本ﾒﾆｭｰを選択して下さい");
        EXPECT_EQ(utf8(world.dialogs.messages[1].title), "項目範囲の先指定");
        EXPECT_EQ(world.screen.focusCalls, 2) << "the input box says that it is back";
        world.expectUntouched();
    }
}

TEST(ItemCommands, WhatIsTypedIsPutAwayBeforeTheItemsChange) {
    ItemCommandWorld world;
    world.stand(1, 1);
    setBoxText(world.edit, PanelField::txtinputbox, u"typed");
    world.select(3, 2, 2);
    world.dialogs.answers = {Answer::yes};
    world.table.run(u"mnuKILLITEM");
    EXPECT_EQ(world.onDisk(1, 14), "1   typed     ");
    EXPECT_EQ(world.zormod.items.itemCount, 1);
    world.expectAtRest();
}

TEST(ItemCommands, TheTaskWordIsSetWhenTheQuestionComes) {
    struct Watching : ScriptedDialogs {
        Answer askYesNoCancel(const Text&, const Text&) override {
            words.push_back(utf8(zormod->taskWord));
            return Answer::no;
        }
        ZORMOD* zormod = nullptr;
        std::vector<std::string> words;
    };
    Watching dialogs;
    TestWorld world({.dialogs = &dialogs});
    dialogs.zormod = &world.zormod;
    EditScreen edit(world.zormod);
    connectPositionBoxes(edit);
    CommandTable table;
    bindItemCommands(table, edit);
    world.table({{u"ID", u"L", 4}, {u"a", u"L", 3}}, {{u"1", u"x"}});
    for (const TextView command : {TextView(u"mnuINSITEM"), TextView(u"mnuKILLITEM")}) {
        world.zormod.selection = {3, 1, 1, 1, 1, 0};
        table.run(command);
    }
    EXPECT_EQ(dialogs.words, (std::vector<std::string>{"insitem", "killitem"}));
}

TEST(ItemCommands, DeletingAllItemsIsRefusedBeforeAnythingIsAsked) {
    ItemCommandWorld world;
    world.select(3, 2, 0);
    world.dialogs.expectedMessages = 1;
    world.table.run(u"mnuKILLITEM");
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.messages[0].text), "すべての項目を削除することはできません");
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "項目の削除");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_TRUE(world.dialogs.questions.empty());
    world.expectUntouched();
    world.expectAtRest();
}

TEST(ItemCommands, WhenTheLastChosenItemIsDeletedAllTakeInputAgain) {
    for (const bool isOneLeft : {false, true}) {
        ItemCommandWorld world;
        world.zormod.input.allItemsInput = 0;
        world.zormod.items.itemInputMark[1] = 1;
        world.zormod.items.itemInputMark[2] = isOneLeft ? 1 : 0;
        world.select(3, 1, 1);
        world.dialogs.answers = {Answer::yes};
        world.table.run(u"mnuKILLITEM");
        ASSERT_EQ(world.zormod.items.itemCount, 1);
        EXPECT_EQ(world.zormod.input.allItemsInput, isOneLeft ? 0 : 1);
    }
}

TEST(ItemCommands, WithTheIdItemAloneDeletingBeeps) {
    EditWorld world;
    CommandTable table;
    bindItemCommands(table, world.edit);
    world.table({{u"ID", u"L", 40}}, {{u"x"}});
    world.show();
    world.zormod.selection = {3, 1, 1, 0, 0, 0};
    table.run(u"mnuKILLITEM");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_TRUE(world.dialogs.messages.empty());
    EXPECT_TRUE(world.dialogs.questions.empty());
}

TEST(ItemCommands, WithoutATableTheyBeep) {
    EditWorld world;
    CommandTable table;
    bindItemCommands(table, world.edit);
    table.run(u"mnuINSITEM");
    table.run(u"mnuKILLITEM");
    EXPECT_EQ(world.beeper.count, 2);
}

TEST(ItemCommands, TheQuestionsAreThoseOfTheRange) {
    ItemCommandWorld world;
    world.select(3, 2, 1);
    world.dialogs.answers = {Answer::no, Answer::no};
    world.table.run(u"mnuINSITEM");
    EXPECT_EQ(world.question(), (Words{"項目の挿入", "項目番号1の位置に、1 項目、挿入します。挿入項目の項目幅は１、左詰め、項目名は適当な名前が付けられます。操作終了後ﾒﾆｭｰのﾋｮｳﾃﾞｻﾞｲﾝ項目幅の変更等の機能で必要に応じて変更して下さい。"}));
    world.select(3, 1, 2);
    world.table.run(u"mnuKILLITEM");
    EXPECT_EQ(world.question(), (Words{"項目の削除", "項目1から項目2の範囲の項目　を　削除します。復活はできません。"}));
}
