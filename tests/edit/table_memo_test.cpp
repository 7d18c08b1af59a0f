#include "edit/table_memo.h"

#include "edit/edit_world.h"
#include "edit/movement.h"
#include "edit/side_boxes.h"
#include "edit/status_update.h"
#include "structure/only_message.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

void type(EditWorld& world, const Text& memo) {
    sideBoxTyped(world.edit, PanelField::RichTextBox2, memo);
}

} // namespace

TEST(TableMemo, IsWrittenIfItDiffers) {
    NumberedWorld world(5);
    const std::string before = world.bytesOf("kt.txt");
    ASSERT_NE(before, "");
    type(world, u"memo");
    keepTypedMemo(world.edit);
    EXPECT_EQ(world.bytesOf("kt.txt"), before);
    type(world, u"ABC");
    keepTypedMemo(world.edit);
    EXPECT_EQ(utf8(world.zormod.file.tableMemo), "ABC");
    EXPECT_NE(world.bytesOf("kt.txt").find("ABC"), std::string::npos);
    showCurrentCell(world.edit);
    EXPECT_EQ(utf8(world.edit.RichTextBox2), "ABC");
}

TEST(TableMemo, GoesToTheFileWithWhateverLeadsAwayFromTheTable) {
    NumberedWorld world(5);
    type(world, u"ABC");
    EXPECT_FALSE(commitTypedText(world.edit)) << "nothing is typed in the input box";
    EXPECT_NE(world.bytesOf("kt.txt").find("ABC"), std::string::npos);
}

TEST(TableMemo, StaysInItsBoxWhenItCannotBeWrittenAndIsWrittenNextTime) {
    NumberedWorld world(5);
    const std::string before = world.bytesOf("kt.txt");
    const std::string folder = world.folder.path();
    // A folder in the place of the new file: it can't be renamed over.
    unlink((folder + "/kt.txt").c_str());
    ASSERT_EQ(mkdir((folder + "/kt.txt").c_str(), 0700), 0);
    type(world, u"ABC");
    world.dialogs.expectedMessages = 1;
    keepTypedMemo(world.edit);
    EXPECT_EQ(takeOnlyMessage(world.dialogs).first, "不適切なﾌｧｲﾙを指定しました。");
    showCurrentCell(world.edit);
    EXPECT_EQ(utf8(world.edit.RichTextBox2), "ABC");
    ASSERT_EQ(rmdir((folder + "/kt.txt").c_str()), 0);
    world.writeFile("kt.txt", before);
    keepTypedMemo(world.edit);
    EXPECT_NE(world.bytesOf("kt.txt").find("ABC"), std::string::npos);
    EXPECT_EQ(utf8(world.zormod.file.tableMemo), "ABC");
}

TEST(TableMemo, OfAnotherTableIsNotTakenOver) {
    NumberedWorld world(5);
    type(world, u"ABC");
    showOpenedTable(world.edit);
    keepTypedMemo(world.edit);
    EXPECT_EQ(utf8(world.zormod.file.tableMemo), "memo");
    EXPECT_EQ(world.bytesOf("kt.txt").find("ABC"), std::string::npos);
}
