#include "start/start_world.h"

#include "sheet/record_window.h"

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;

TEST(TableOpening, OpensInPlaceOfTheOldTableAndFillsTheWindow) {
    StartWorld world;
    world.make("a.txt", u"one");
    world.make("b.txt", u"two");
    world.openTable("a.txt");
    world.zormod.position.curRecord = 2;
    world.zormod.selection.selectionKind = 1;
    EXPECT_TRUE(openInsteadOfOld(world.zormod, world.pathOf(u"b.txt"), u"c"));
    world.expectOpen("b.txt", u"two");
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    EXPECT_EQ(world.zormod.selection.selectionKind, 0);
    EXPECT_EQ(world.screen.maskHides, 1);
    EXPECT_NE(world.screen.title.find(u"b.txt/記録数:1"), Text::npos);
}

TEST(TableOpening, ANewTableTakesInputInAllItemsWhateverWasChosenInTheOldOne) {
    StartWorld world;
    world.make("a.txt");
    world.make("b.txt");
    world.openTable("a.txt");
    world.zormod.input.allItemsInput = 0;
    world.zormod.items.itemInputMark[0] = 1;
    world.zormod.items.itemInputMark[1] = 1;
    EXPECT_TRUE(openInsteadOfOld(world.zormod, world.pathOf(u"b.txt"), u"C"));
    EXPECT_EQ(world.zormod.input.allItemsInput, 1);
    EXPECT_EQ(world.zormod.items.itemInputMark[0], 0);
    EXPECT_EQ(world.zormod.items.itemInputMark[1], 0);
}

TEST(TableOpening, ARefusedTableLeavesTheOldOneOpenAndWhole) {
    StartWorld world;
    world.make("a.txt", u"one");
    world.openTable("a.txt");
    world.writeFile("kbad.txt", "nonsense");
    world.dialogs.expectedMessages = 1;
    EXPECT_FALSE(openInsteadOfOld(world.zormod, world.pathOf(u"bad.txt"), u"C"));
    world.expectOpen("a.txt", u"one");
    EXPECT_EQ(utf8(world.zormod.file.tableMemo), "memo");
    EXPECT_FALSE(world.isThere("bad.txt"));
}

TEST(TableOpening, ADataFileThatCantBeOpenedLeavesTheOldOneOpenAndIsThrown) {
    StartWorld world;
    world.make("a.txt", u"one");
    world.make("b.txt", u"two");
    std::filesystem::remove(world.native("b.txt"));
    std::filesystem::create_directory(world.native("b.txt"));
    world.openTable("a.txt");
    EXPECT_THROW(openInsteadOfOld(world.zormod, world.pathOf(u"b.txt"), u"C"), RuntimeFailure);
    world.expectOpen("a.txt", u"one");
}

TEST(TableOpening, WithoutAnOldTableARefusalLeavesNone) {
    StartWorld world;
    world.dialogs.expectedMessages = 1;
    EXPECT_FALSE(openInsteadOfOld(world.zormod, world.pathOf(u"none.txt"), u"C"));
    world.expectNoTable();
}

TEST(TableOpening, ADriveThatIsNotThereAndANameThatIsTooLongAreRefusedInTheSameWords) {
    for (const Text& name : {Text(u"q:\\t.txt"), u"c:\\" + Text(300, u'a') + u".txt"}) {
        StartWorld world;
        world.dialogs.expectedMessages = 1;
        EXPECT_FALSE(openInsteadOfOld(world.zormod, name.substr(2), name.substr(0, 1)));
        ASSERT_EQ(world.dialogs.messages.size(), 1U);
        EXPECT_EQ(utf8(world.dialogs.messages[0].title), "項目挿入不可能");
        EXPECT_EQ(world.beeper.count, 1);
        world.expectNoTable();
    }
}

TEST(TableOpening, AnOldTableThatIsSpoiltMeanwhileIsGivenUp) {
    StartWorld world;
    world.make("a.txt");
    world.openTable("a.txt");
    OldTable old(world.zormod);
    world.writeFile("ka.txt", "nonsense");
    world.dialogs.expectedMessages = 1;
    old.putBack();
    world.expectNoTable();
}

TEST(TableOpening, ATableInUseElsewhereIsRefusedAndTheOldClaimStays) {
    StartWorld world;
    world.make("a.txt", u"one");
    world.make("b.txt", u"two");
    world.openTable("a.txt");
    PosixFiles otherCopy(defaultDrives(), world.folder.path());
    const auto claim = otherCopy.lockTable(world.zormod.file.programFolder + u"b.txt");
    world.dialogs.expectedMessages = 1;
    EXPECT_FALSE(openInsteadOfOld(world.zormod, world.pathOf(u"b.txt"), u"C"));
    world.expectMessage("このﾌｧｲﾙは別のロミカで使用中です", "確認");
    world.expectOpen("a.txt", u"one");
    EXPECT_FALSE(otherCopy.lockTable(world.zormod.file.programFolder + u"a.txt"));
}

TEST(TableOpening, TheOpenTableMayBeOpenedAgain) {
    StartWorld world;
    world.make("a.txt", u"one");
    world.openTable("a.txt");
    EXPECT_TRUE(openInsteadOfOld(world.zormod, world.pathOf(u"a.txt"), u"C"));
    world.expectOpen("a.txt", u"one");
}

TEST(TableOpening, ShowingATableOpensTheEditScreenOnlyWhereItIsNotThere) {
    StartWorld world;
    showTableOnScreen(world.zormod);
    EXPECT_TRUE(world.forms.opened.empty());
    EXPECT_THAT(utf8(world.commands.names), ElementsAre("showOpenedTable", "backToInputBox"));
    world.forms.loaded.clear();
    world.commands.names.clear();
    showTableOnScreen(world.zormod);
    EXPECT_THAT(utf8(world.forms.opened), Contains("Form1"));
    EXPECT_THAT(utf8(world.commands.names), ElementsAre("showOpenedTable")) << "its opening text is still to come";
}
