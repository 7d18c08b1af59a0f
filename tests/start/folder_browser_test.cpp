#include "start/folder_browser.h"

#include "platform/failure.h"
#include "start/start_world.h"

#include <gmock/gmock.h>

#include <optional>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// Two folders, three tables and a text; the media that tests put in are further drives.
struct BrowserWorld : StartWorld {
    BrowserWorld() {
        for (const char* name : {"ka.txt", "Kb.TXT", "plain.txt", "kc.doc", ".khidden.txt"}) {
            writeFile(name, "");
        }
        std::filesystem::create_directory(native("alpha"));
        std::filesystem::create_directories(native("beta/inner"));
        writeFile("beta/kinner.txt", "");
        here = zormod.file.programFolder;
        here.pop_back();
        browser.emplace(zormod, u"K*.TXT");
        browser->start(here);
    }
    Text here;
    std::optional<FolderBrowser> browser;
};

} // namespace

TEST(FolderBrowser, ListsFoldersWithTheOneAboveAndFilesByThePattern) {
    BrowserWorld world;
    EXPECT_EQ(world.browser->path(), world.here);
    EXPECT_THAT(utf8(world.browser->folders()), ElementsAre("..", "alpha", "beta"));
    EXPECT_THAT(utf8(world.browser->files()), ElementsAre("ka.txt", "Kb.TXT"));
    EXPECT_THAT(utf8(world.browser->drives()), ElementsAre("c:"));
    EXPECT_EQ(world.browser->currentDrive(), 0);
    EXPECT_EQ(world.browser->selectedFile(), -1);
}

TEST(FolderBrowser, AnotherPatternListsOtherFilesOfTheSameFolder) {
    BrowserWorld world;
    world.browser->selectFile(1);
    world.browser->setPattern(u"*.*");
    EXPECT_THAT(utf8(world.browser->files()), ElementsAre("ka.txt", "Kb.TXT", "kc.doc", "plain.txt"));
    EXPECT_EQ(world.browser->selectedFile(), -1);
}

TEST(FolderBrowser, GoesDownAndUpAgainToTheFolderItCameFrom) {
    BrowserWorld world;
    const int before = world.browser->revision();
    EXPECT_TRUE(world.browser->changeFolder(2));
    EXPECT_NE(world.browser->revision(), before);
    EXPECT_EQ(world.browser->path(), world.here + u"\\beta");
    EXPECT_EQ(world.browser->changedText(), world.here + u"\\betaにﾌｫﾙﾀﾞが変更されました.");
    EXPECT_THAT(utf8(world.browser->files()), ElementsAre("kinner.txt"));
    EXPECT_TRUE(world.browser->changeFolder(0));
    EXPECT_EQ(world.browser->path(), world.here);
    EXPECT_EQ(world.browser->startFolder(), 2);
}

TEST(FolderBrowser, ARootHasNoFolderAbove) {
    BrowserWorld world;
    world.browser->start(u"C:\\");
    EXPECT_EQ(world.browser->path(), u"C:\\");
    ASSERT_FALSE(world.browser->folders().empty());
    EXPECT_NE(world.browser->folders()[0], folderAbove);
    world.browser->start(u"C:\\tmp");
    EXPECT_TRUE(world.browser->changeFolder(0));
    EXPECT_EQ(world.browser->path(), u"C:\\");
}

TEST(FolderBrowser, AFolderThatCantBeReadIsToldAndStays) {
    BrowserWorld world;
    std::filesystem::remove(world.native("alpha"));
    world.browser->selectFile(0);
    world.dialogs.expectedMessages = 1;
    EXPECT_FALSE(world.browser->changeFolder(1));
    world.expectMessage(utf8(failureText(FailureKind::file)), utf8(failureTitle));
    EXPECT_EQ(world.browser->path(), world.here);
    EXPECT_EQ(world.browser->selectedFile(), 0);
    EXPECT_THAT(utf8(world.browser->folders()), ElementsAre("..", "alpha", "beta"));
}

TEST(FolderBrowser, ALineThatIsNotThereChangesNothing) {
    BrowserWorld world;
    EXPECT_FALSE(world.browser->changeFolder(-1));
    EXPECT_FALSE(world.browser->changeFolder(3));
    EXPECT_FALSE(world.browser->changeDrive(-1));
    EXPECT_EQ(world.browser->path(), world.here);
}

TEST(FolderBrowser, TheProgramsDriveIsEnteredAtTheProgramsFolderAndAnotherAtItsRoot) {
    BrowserWorld world;
    TemporaryFolder medium;
    std::filesystem::create_directory(medium.path() + "/photos");
    world.files.lookForMedia([&] { return std::vector<std::string>{medium.path()}; });
    world.browser->findDrives();
    EXPECT_THAT(utf8(world.browser->drives()), ElementsAre("c:", "d:"));
    EXPECT_TRUE(world.browser->changeDrive(1));
    EXPECT_EQ(world.browser->path(), u"D:\\");
    EXPECT_EQ(world.browser->currentDrive(), 1);
    EXPECT_THAT(utf8(world.browser->folders()), ElementsAre("photos"));
    EXPECT_TRUE(world.browser->changeDrive(0));
    EXPECT_EQ(world.browser->path(), world.here);
}

TEST(FolderBrowser, ADriveThatIsNotReadyIsToldAndStays) {
    BrowserWorld world;
    {
        TemporaryFolder medium;
        world.files.lookForMedia([path = medium.path()] { return std::vector<std::string>{path}; });
        world.browser->findDrives();
    }
    world.dialogs.expectedMessages = 1;
    EXPECT_FALSE(world.browser->changeDrive(1));
    EXPECT_EQ(world.browser->path(), world.here);
}

TEST(FolderBrowser, ReadingAgainKeepsTheSelectedFileIfItIsStillThere) {
    BrowserWorld world;
    world.browser->selectFile(1);
    world.writeFile("kaa.txt", "");
    EXPECT_TRUE(world.browser->refresh());
    EXPECT_EQ(utf8(world.browser->selectedName()), "Kb.TXT");
    EXPECT_EQ(world.browser->selectedFile(), 2);
    std::filesystem::remove(world.native("Kb.TXT"));
    EXPECT_TRUE(world.browser->refresh());
    EXPECT_EQ(world.browser->selectedFile(), -1);
    EXPECT_EQ(world.browser->selectedName(), u"");
}

TEST(FolderBrowser, AStartFolderThatIsGoneFallsBackToTheProgramsFolder) {
    BrowserWorld world;
    world.browser->start(world.here + u"\\gone");
    EXPECT_EQ(world.browser->path(), world.here);
    EXPECT_THAT(world.dialogs.messages, IsEmpty());
}

TEST(FolderBrowser, NamesOutsideTheCodePageAreShownAndUsable) {
    BrowserWorld world;
    std::filesystem::create_directory(world.native("한국"));
    world.writeFile("한국/k한국.txt", "");
    world.browser->refresh();
    EXPECT_THAT(utf8(world.browser->folders()), ElementsAre("..", "alpha", "beta", "한국"));
    EXPECT_TRUE(world.browser->changeFolder(3));
    EXPECT_THAT(utf8(world.browser->files()), ElementsAre("k한국.txt"));
}
