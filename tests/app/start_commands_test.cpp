#include "app/start_commands.h"

#include "edit/status_update.h"
#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "start/file_choice.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct CommandWorld : TestWorld {
    CommandWorld() {
        bindCommands(table_, routines);
        forms.loaded.insert(u"Form1");
    }
    void open() {
        table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}}, {{u"1", u"a"}});
        showOpenedTable(edit);
    }
    Routines routines{zormod};
    EditScreen& edit = routines.edit;
    CommandTable table_;
};

} // namespace

TEST(StartCommands, EveryEntryOfTheStartScreenButItsHelpIsBound) {
    CommandWorld world;
    for (const TextView name : {u"mnuSINKI", u"mnuKiSON", u"mnuSYURYOU", u"mnuKAKEI", u"mnuad", u"mnuS10", u"mnuS50",
                                u"mnuS100", u"mnuG1", u"mnuE1", u"mnuE2"}) {
        EXPECT_TRUE(world.table_.isBound(name)) << utf8(name);
    }
    EXPECT_THROW(world.table_.run(u"mnuSYURYOU"), ProgramEnd);
}

TEST(StartCommands, ChoosingAFileCommitsWhatIsTypedAndTheRowFirst) {
    for (const auto& [entry, word] : {std::pair(u"mnuREAD", openFileWord), std::pair(u"mnuDEL", deleteFileWord)}) {
        CommandWorld world;
        world.open();
        world.zormod.position.curItem = 1;
        world.edit.txtinputbox.set(u"new");
        std::string onDisk;
        Text taskWord;
        world.forms.scripts[u"frmDISK"] = [&] {
            onDisk = world.bytesOf("t.txt").substr(3, 6);
            taskWord = world.zormod.taskWord;
        };
        world.table_.run(entry);
        EXPECT_EQ(onDisk, "new   ");
        EXPECT_EQ(taskWord, word);
        EXPECT_EQ(world.edit.txtinputbox.text(), u"");
    }
}

TEST(StartCommands, WithoutATableAFileIsChosenAllTheSame) {
    CommandWorld world;
    world.table_.run(u"mnuREAD");
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmDISK"));
}

TEST(StartCommands, TheItemListComesBackToTheInputBox) {
    CommandWorld world;
    world.open();
    world.screen.focusCalls = 0;
    world.forms.scripts[u"frmItemList"] = [] {};
    world.table_.run(u"mnuItemList");
    EXPECT_THAT(utf8(world.forms.opened), ElementsAre("frmItemList"));
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
    EXPECT_EQ(world.screen.focusCalls, 1);
}

TEST(StartCommands, TheItemListWithoutATableBeeps) {
    CommandWorld world;
    world.table_.run(u"mnuItemList");
    EXPECT_THAT(world.forms.opened, IsEmpty());
    EXPECT_EQ(world.beeper.count, 1);
}

TEST(StartCommands, AnOpenedTableIsShownWithItsLabels) {
    CommandWorld world;
    world.table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}}, {{u"1", u"a"}});
    world.table_.run(u"showOpenedTable");
    EXPECT_EQ(utf8(world.edit.Label11), "全項目(0～1)");
    EXPECT_EQ(world.screen.focus, PanelField::txtinputbox);
}
