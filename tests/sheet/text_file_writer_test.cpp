#include "sheet/text_file_writer.h"

#include "support/faulty_files.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

struct WriterWorld : TestWorld {
    bool has(const std::string& name) const { return std::filesystem::exists(folder.path() + "/" + name); }
};

} // namespace

TEST(TextFileWriter, TheFileGetsItsNameOnlyWhenItIsPutInPlace) {
    WriterWorld world;
    world.writeFile("list", "a much longer old file\r\n");
    {
        TextFileWriter file(world.zormod, 3, u"list");
        file.numberLine(-1);
        file.numberLine(20);
        file.quotedLine("tw\"o");
        file.quotedLine("\xED\x40 "); // a code that stands for its character a second time
        EXPECT_EQ(world.bytesOf("list"), "a much longer old file\r\n");
        EXPECT_NE(world.zormod.files.byNumber[3], nullptr);
        file.putInPlace();
        EXPECT_EQ(world.bytesOf("list"), "-1 \r\n 20 \r\n\"tw\"o\"\r\n\"\xFA\x5C \"\r\n");
        EXPECT_EQ(world.zormod.files.byNumber[3], nullptr);
    }
    EXPECT_FALSE(world.has(".new-list"));
}

TEST(TextFileWriter, AFileThatIsNeverPutInPlaceLeavesTheOldOne) {
    WriterWorld world;
    world.writeFile("list", "old\r\n");
    {
        TextFileWriter file(world.zormod, 4, u"list");
        file.quotedLine("new");
    }
    EXPECT_EQ(world.bytesOf("list"), "old\r\n");
    EXPECT_FALSE(world.has(".new-list"));
    EXPECT_EQ(world.zormod.files.byNumber[4], nullptr);
}

TEST(TextFileWriter, AFileThatCannotTakeItsPlaceIsTakenAway) {
    WriterWorld world;
    std::filesystem::create_directory(world.folder.path() + "/list");
    {
        TextFileWriter file(world.zormod, 4, u"list");
        EXPECT_THROW(file.putInPlace(), RuntimeFailure);
    }
    EXPECT_TRUE(std::filesystem::is_directory(world.folder.path() + "/list"));
    EXPECT_FALSE(world.has(".new-list"));
    EXPECT_EQ(world.zormod.files.byNumber[4], nullptr);
}

TEST(TextFileWriter, WhatAKillLeftBehindIsReplaced) {
    WriterWorld world;
    world.writeFile(".new-list", std::string(5000, 'x'));
    TextFileWriter file(world.zormod, 3, u"list");
    file.quotedLine("new");
    file.putInPlace();
    EXPECT_EQ(world.bytesOf("list"), "\"new\"\r\n");
}

TEST(TextFileWriter, WhatAnotherCopyIsWritingStaysUntilThatCopyIsDone) {
    WriterWorld world;
    world.writeFile(".new-ZORCLip", "half");
    PosixFiles other(defaultDrives(), world.folder.path());
    auto claim = other.lockFolder(other.currentFolder());
    ASSERT_NE(claim, nullptr);
    clearUnfinishedTextFiles(world.zormod);
    EXPECT_EQ(world.bytesOf(".new-ZORCLip"), "half");
    claim.reset();
    clearUnfinishedTextFiles(world.zormod);
    EXPECT_FALSE(world.has(".new-ZORCLip"));
}

TEST(TextFileWriter, AnOldFileOfAnotherSpellingKeepsItsOwn) {
    WriterWorld world;
    world.writeFile("LIST", "old\r\n");
    TextFileWriter file(world.zormod, 3, u"list");
    file.putInPlace();
    EXPECT_TRUE(world.has("LIST"));
    EXPECT_FALSE(world.has("list"));
    EXPECT_EQ(world.bytesOf("LIST"), "");
}

TEST(TextFileWriter, InAFolderTheNewFileStandsBesideTheOldOne) {
    WriterWorld world;
    std::filesystem::create_directory(world.folder.path() + "/sub");
    TextFileWriter file(world.zormod, 3, world.zormod.file.programFolder + u"sub\\list");
    EXPECT_TRUE(world.has("sub/.new-list"));
    file.putInPlace();
    EXPECT_TRUE(world.has("sub/list"));
}
