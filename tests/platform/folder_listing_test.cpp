#include "platform/posix/drive_table.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(FolderListing, SeparatesFoldersAndFilesInOrderAndHidesTheHidden) {
    TestWorld world;
    for (const char* name : {"b.txt", "A.txt", "か.txt", ".hidden"}) {
        world.writeFile(name, "x");
    }
    std::filesystem::create_directory(world.folder.path() + "/sub");
    std::filesystem::create_directory(world.folder.path() + "/.git");
    std::filesystem::create_symlink("sub", world.folder.path() + "/link");
    std::filesystem::create_symlink("nowhere", world.folder.path() + "/broken");
    const FolderContents contents = world.files.folderContents(world.zormod.file.programFolder);
    EXPECT_EQ(contents.folders, (std::vector<Text>{u"link", u"sub"}));
    EXPECT_EQ(contents.files, (std::vector<Text>{u"A.txt", u"b.txt", u"か.txt"}));
}

TEST(FolderListing, AListedNameLeadsToItsFileWhateverItHolds) {
    TestWorld world;
    for (const char* name : {"a\\b.txt", "c:d.txt", "\x96\xBC.txt", " e ", "\\"}) {
        const std::string native = world.folder.path() + "/" + name;
        world.writeFile(name, name);
        const FolderContents contents = world.files.folderContents(world.zormod.file.programFolder);
        ASSERT_EQ(contents.files.size(), 1U) << name;
        EXPECT_EQ(world.files.readWhole(world.zormod.file.programFolder + contents.files[0], 100), name);
        std::filesystem::remove(native);
        std::filesystem::create_directory(native);
        ASSERT_EQ(world.files.folderContents(world.zormod.file.programFolder).folders, contents.files) << name;
        EXPECT_NO_THROW(world.files.folderContents(world.zormod.file.programFolder + contents.files[0])) << name;
        std::filesystem::remove(native);
    }
}

TEST(FolderListing, AFolderThatIsNotThereIsAFailure) {
    TestWorld world;
    EXPECT_THROW(world.files.folderContents(world.zormod.file.programFolder + u"none"), RuntimeFailure);
}

TEST(FolderListing, RemovesFilesAndMakesFolders) {
    TestWorld world;
    world.writeFile("a.txt", "x");
    const Text folder = world.zormod.file.programFolder;
    world.files.remove(folder + u"A.TXT");
    EXPECT_FALSE(world.files.exists(folder + u"a.txt"));
    EXPECT_THROW(world.files.remove(folder + u"a.txt"), RuntimeFailure);
    world.files.makeFolder(folder + u"新しい");
    EXPECT_TRUE(std::filesystem::is_directory(world.folder.path() + "/新しい"));
    EXPECT_THROW(world.files.makeFolder(folder + u"新しい"), RuntimeFailure);
    EXPECT_THROW(world.files.remove(folder + u"新しい"), RuntimeFailure);
}

TEST(FolderListing, NewMediaGetNewLettersAndOldOnesKeepTheirs) {
    DriveTable drives{{u'C', "/"}};
    giveLetters(drives, {"/media/u/b"});
    giveLetters(drives, {"/media/u/a", "/media/u/b"});
    EXPECT_EQ(drives, (DriveTable{{u'C', "/"}, {u'D', "/media/u/b"}, {u'E', "/media/u/a"}}));
    giveLetters(drives, {"/media/u/c"});
    EXPECT_EQ(drives.at(u'D'), "/media/u/b");
    EXPECT_EQ(drives.at(u'F'), "/media/u/c");
}

TEST(FolderListing, TheDriveListLooksForMediaEachTime) {
    TestWorld world;
    std::vector<std::string> media;
    world.files.lookForMedia([&] { return media; });
    EXPECT_EQ(world.files.drives(), (std::vector<Text>{u"C"}));
    media.push_back(world.folder.path());
    EXPECT_EQ(world.files.drives(), (std::vector<Text>{u"C", u"D"}));
    world.writeFile("a.txt", "x");
    EXPECT_TRUE(world.files.exists(u"D:\\a.txt"));
}
