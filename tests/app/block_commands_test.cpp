#include "app/block_commands.h"

#include "edit/edit_world.h"

namespace {

struct BlockCommandWorld : EditWorld {
    BlockCommandWorld() {
        bindBlockCommands(table, edit);
        people({{u"1", u"山田", u"40"}, {u"2", u"鈴木", u"7"}, {u"3", u"佐藤", u"9"}});
        data = bytesOf("t.txt");
    }
    void expectAtRest() const {
        EXPECT_EQ(zormod.selection.selectionKind, 0);
        EXPECT_EQ(zormod.taskWord, Text());
        EXPECT_EQ(typed(), "");
        EXPECT_EQ(screen.focus, PanelField::txtinputbox);
    }
    CommandTable table;
    std::string data;
};

} // namespace

TEST(BlockCommands, ClearingAsksOnceAndBlanksTheBlock) {
    BlockCommandWorld world;
    world.zormod.selection = {1, 3, 2, 2, 1, 0};
    world.dialogs.answers = {Answer::yes};
    world.table.run(u"mnuZDEL");
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "指定範囲データ消去");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt),
              "記録2から記録3の範囲に於ける、項目1から項目2の範囲 のデータを消去し、ブランクに置き換えます。消去部はクリップファイルになります");
    EXPECT_EQ(world.onDisk(1), world.data.substr(0, 17));
    EXPECT_EQ(world.onDisk(2), "2                ");
    EXPECT_EQ(world.onDisk(3), "3                ");
    world.expectAtRest();
}

TEST(BlockCommands, WholeRecordsAndItemsCanBeClearedToo) {
    BlockCommandWorld world;
    world.zormod.selection = {2, 2, 2, 0, 2, 0};
    world.dialogs.answers = {Answer::yes, Answer::yes};
    world.table.run(u"mnuZDEL");
    EXPECT_EQ(world.onDisk(2), "                 ");
    world.zormod.selection = {3, 1, 3, 2, 2, 0};
    world.table.run(u"mnuZDEL");
    EXPECT_EQ(world.onDisk(3), "3   " + world.codePage.encode(u"佐藤") + "         ");
}

TEST(BlockCommands, ANoClearsNothing) {
    for (const Answer answer : {Answer::no, Answer::cancel}) {
        BlockCommandWorld world;
        world.zormod.selection = {1, 1, 2, 1, 1, 0};
        world.dialogs.answers = {answer};
        world.table.run(u"mnuZDEL");
        EXPECT_EQ(world.bytesOf("t.txt"), world.data);
        EXPECT_EQ(world.bytesOf("ZORCLip"), "");
        world.expectAtRest();
    }
}

TEST(BlockCommands, WithoutARangeTheUserIsToldToChooseOne) {
    BlockCommandWorld world;
    world.dialogs.expectedMessages = 1;
    world.screen.focusCalls = 0;
    world.table.run(u"mnuZDEL");
    EXPECT_EQ(world.screen.focusCalls, 1) << "the input box says that it is back";
    ASSERT_EQ(world.dialogs.messages.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.messages[0].title), "消去範囲の先指定");
    EXPECT_EQ(utf8(world.dialogs.messages[0].text), "Alt+矢印またはshift+矢印で消去範囲を指定した上で、本ﾒﾆｭｰを選択して下さい");
    EXPECT_EQ(world.bytesOf("t.txt"), world.data);
}

TEST(BlockCommands, WhatIsTypedIsOnTheDiskBeforeTheBlockIsCleared) {
    BlockCommandWorld world;
    world.stand(1, 1);
    setBoxText(world.edit, PanelField::txtinputbox, u"typed");
    world.zormod.selection = {1, 2, 2, 1, 1, 0};
    world.dialogs.answers = {Answer::yes};
    world.table.run(u"mnuZDEL");
    EXPECT_EQ(world.onDisk(1, 14), "1   typed     ");
    EXPECT_EQ(world.onDisk(2, 14), "2             ");
    world.expectAtRest();
}

TEST(BlockCommands, WithoutATableItBeeps) {
    EditWorld world;
    CommandTable table;
    bindBlockCommands(table, world.edit);
    table.run(u"mnuZDEL");
    EXPECT_EQ(world.beeper.count, 1);
}
