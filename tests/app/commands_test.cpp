#include "app/commands.h"

#include "edit/range_keys.h"
#include "edit/status_update.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

struct CommandWorld : TestWorld {
    CommandWorld() {
        bindCommands(table_, routines);
        zormod.speech.speechMode = 1;
    }
    void openThreeRecords() {
        table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}}, {{u"1", u"a"}, {u"2", u"b"}, {u"3", u"c"}});
        takeSpoken();
        later();
    }
    Routines routines{zormod};
    EditScreen& edit = routines.edit;
    CommandTable table_;
};

} // namespace

TEST(CommandTable, RunsTheRoutineThatIsBoundLast) {
    CommandTable commands;
    int first = 0;
    int second = 0;
    commands.bind(u"a", [&] { ++first; });
    commands.bind(u"a", [&] { ++second; });
    commands.run(u"a");
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST(CommandTable, ARoutineMayBindItselfAnew) {
    CommandTable commands;
    int runs = 0;
    commands.bind(u"a", [&] {
        commands.bind(u"a", [&] { runs += 10; });
        ++runs;
    });
    commands.run(u"a");
    commands.run(u"a");
    EXPECT_EQ(runs, 11);
}

TEST(CommandTable, TheKeyGuidesAreOpenedByTheirEntries) {
    CommandWorld world;
    for (const TextView name : {u"mnuALT", u"mnuCTRL", u"mnuFKEY", u"mnuSfunc"}) {
        world.table_.run(name);
    }
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmALT", "frmCTRLK", "frmFUNC", "frmSFUNC"));
}

TEST(CommandTable, TheHelpMenuShowsItsTextsInTheViewer) {
    for (const HelpFile& help : helpFiles()) {
        CommandWorld world;
        world.writeFile(utf8(help.file), "abc\r\n");
        world.table_.run(help.command);
        EXPECT_EQ(utf8(world.routines.viewer.text()), "abc\r");
        EXPECT_EQ(utf8(world.routines.viewer.caption()), utf8(help.caption));
        EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmHelp"));
    }
}

TEST(CommandTable, TheHelpOfTheStartScreenTellsOfTheProgram) {
    CommandWorld world;
    world.writeFile("ロミカについて.txt", "abc\r\n");
    world.table_.run(u"mnuH");
    EXPECT_EQ(utf8(world.routines.viewer.text()), "abc\r");
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmHelp"));
}

TEST(CommandTable, GoingBackToTheInputBoxRedrawsTheSheetAndKeepsWhatIsTyped) {
    CommandWorld world;
    world.openThreeRecords();
    world.routines.inputBox.change(u"ab");
    world.takeSpoken();
    world.later();
    const int redraws = world.screen.redraws;
    world.table_.run(u"backToInputBox");
    EXPECT_EQ(world.screen.redraws, redraws + 1);
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(utf8(world.edit.txtinputbox.text()), "ab");
    EXPECT_EQ(world.takeSpoken().size(), 1U);
}

TEST(CommandTable, ANameWithoutARoutineBeepsAndSaysSo) {
    CommandWorld world;
    world.table_.run(u"mnuSORT");
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_THAT(world.takeSpoken(), ElementsAre("まだ使えません"));
}

TEST(CommandTable, WithoutAnUnboundRuleAnUnknownNameDoesNothing) {
    CommandTable commands;
    EXPECT_NO_THROW(commands.run(u"nothing"));
}

TEST(BindCommands, JumpsAndEdgesMoveTheCurrentCell) {
    CommandWorld world;
    world.openThreeRecords();
    world.table_.run(u"mnuEXTD");
    EXPECT_EQ(world.zormod.position.curRecord, 3);
    world.table_.run(u"mnuEXTR");
    EXPECT_EQ(world.zormod.position.curItem, 1);
    world.table_.run(u"mnuEXTTOP");
    EXPECT_EQ(world.zormod.position.curRecord, 1);
    world.dialogs.texts = {u"2"};
    world.table_.run(u"mnuJUMP");
    EXPECT_EQ(world.zormod.position.curRecord, 2);
    world.table_.run(u"mnuHOME");
    EXPECT_EQ(world.zormod.position.curRecord, 1);
}

TEST(BindCommands, ReadingModesFollowTheirEntries) {
    CommandWorld world;
    world.table_.run(u"mnuDTKEX");
    EXPECT_EQ(world.zormod.speech.speechMode, 2);
    world.table_.run(u"mnuDTKN");
    EXPECT_EQ(world.zormod.speech.speechMode, 1);
    world.table_.run(u"mnuJY");
    EXPECT_EQ(world.zormod.speech.pinnedAutoRead, 1);
    world.table_.run(u"mnuDTKOFF");
    EXPECT_EQ(world.zormod.speech.speechMode, 0);
}

TEST(BindCommands, AKeyOfARangeLetGoInTheInputBoxSaysWhereTheRangeStands) {
    CommandWorld world;
    world.openThreeRecords();
    world.table_.run(startRecordRangeCommand);
    world.takeSpoken();
    world.later();
    world.table_.run(stepRangeCommand);
    EXPECT_EQ(world.takeSpoken(),
              std::vector<std::string>{"ｷﾞｮｳ1.ｷﾞｮｳﾊﾝｲ指定中．今のセルデータは1．ｷﾞｮｳ1から1指定ずみ"});
}

TEST(BindCommands, TheEndEntryEndsInOrder) {
    CommandWorld world;
    EXPECT_THROW(world.table_.run(u"mnuEND"), ProgramEnd);
    EXPECT_FALSE(world.bytesOf("zorTalk").empty());
}
