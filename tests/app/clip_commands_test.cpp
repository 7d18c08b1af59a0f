#include "app/clip_commands.h"

#include "edit/edit_world.h"

#include <gmock/gmock.h>

namespace {

struct ClipCommandWorld : EditWorld {
    ClipCommandWorld() {
        bindClipCommands(table, edit);
        numbered(3);
    }
    void expectAtRest() const {
        EXPECT_EQ(zormod.selection.selectionKind, 0);
        EXPECT_EQ(screen.focus, PanelField::txtinputbox);
        EXPECT_EQ(typed(), "");
    }
    CommandTable table;
};

const std::string oneCell = " 1 \r\n 1 \r\n 1 \r\n 1 \r\n\"x\"\r\n";

} // namespace

TEST(ClipCommands, CopyingPutsTypedTextAwayFirst) {
    ClipCommandWorld world;
    world.stand(2, 1);
    world.type(u"xy");
    world.zormod.selection = {1, 2, 2, 1, 1, 0};
    world.table.run(u"mnuCLIP");
    EXPECT_EQ(world.bytesOf("ZORCLip"), " 1 \r\n 2 \r\n 1 \r\n 1 \r\n\"xy        \"\r\n");
    EXPECT_EQ(world.onDisk(2).substr(4, 3), "xy ");
    world.expectAtRest();
}

TEST(ClipCommands, TheCopiedCellsStayOnTheClipboard) {
    ClipCommandWorld world;
    world.numbered(3, 1);
    world.stand(2, 1);
    world.zormod.selection = {1, 2, 3, 1, 1, 0};
    world.forget();
    world.table.run(u"mnuCLIP");
    ASSERT_FALSE(world.clipboard.written.empty());
    EXPECT_EQ(utf8(world.clipboard.written.back()), "n2        n3        " + utf8(world.zormod.speech.speechMark));
    world.expectAtRest();
}

TEST(ClipCommands, TheNumberOfInsertedRecordsIsTheLastThatIsHeard) {
    ClipCommandWorld world;
    world.numbered(3, 2);
    world.writeFile("ZORCLip", oneCell);
    world.stand(2, 1);
    world.table.run(u"mnuIPASTE");
    const auto spoken = world.takeSpoken();
    ASSERT_FALSE(spoken.empty());
    EXPECT_EQ(spoken.back(), " 1業挿入されました。");
}

TEST(ClipCommands, CopyingWithoutARangeIsTold) {
    ClipCommandWorld world;
    world.dialogs.expectedMessages = 1;
    world.table.run(u"mnuCLIP");
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).title), "ｸﾘｯﾌﾟ範囲の指定");
    world.expectAtRest();
}

TEST(ClipCommands, PastingOverStartsAtTheCurrentCellAndShowsIt) {
    ClipCommandWorld world;
    world.writeFile("ZORCLip", oneCell);
    world.stand(2, 1);
    world.table.run(u"mnuPAST");
    EXPECT_EQ(world.onDisk(2).substr(4, 3), "x  ");
    EXPECT_EQ(world.cell(1), "x         ");
    EXPECT_FALSE(world.screen.echoTyping);
    world.expectAtRest();
}

TEST(ClipCommands, PastingByInsertionKeepsTheRecordsBehind) {
    ClipCommandWorld world;
    world.writeFile("ZORCLip", oneCell);
    world.stand(2, 1);
    world.table.run(u"mnuIPASTE");
    EXPECT_EQ(world.recordsOnDisk(), 4U);
    EXPECT_EQ(world.onDisk(2).substr(4, 3), "x  ");
    EXPECT_EQ(world.onDisk(3).substr(4, 3), "n2 ");
    world.expectAtRest();
}

TEST(ClipCommands, TakingBackPutsTheOldRowIntoTheWindowToo) {
    ClipCommandWorld world;
    world.writeFile("ZORCLip", oneCell);
    world.stand(2, 1);
    world.table.run(u"mnuPAST");
    world.dialogs.answers = {Answer::ok};
    world.table.run(u"mnuDEPAST");
    EXPECT_EQ(world.cell(1), "n2        ");
    EXPECT_EQ(world.onDisk(2).substr(4, 3), "n2 ");
    world.expectAtRest();
}

TEST(ClipCommands, WithoutATableEachBeeps) {
    for (const TextView name : {u"mnuCLIP", u"mnuPAST", u"mnuIPASTE", u"mnuDEPAST"}) {
        EditWorld world;
        CommandTable table;
        bindClipCommands(table, world.edit);
        table.run(name);
        EXPECT_EQ(world.beeper.count, 1);
        EXPECT_TRUE(world.dialogs.messages.empty());
    }
}
