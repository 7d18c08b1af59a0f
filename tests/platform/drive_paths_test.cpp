#include "platform/posix/drive_paths.h"

#include "platform/failure.h"
#include "platform/posix/native_names.h"
#include "support/forked_child.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

/// Drive C is the folder "c", drive D the folder "d"; the program starts in "c/start".
struct TwoDrives {
    TwoDrives() {
        std::filesystem::create_directories(folder.path() + "/c/start/Sub");
        std::filesystem::create_directory(folder.path() + "/d");
    }
    std::string native(TextView path) const {
        return paths().native(path).substr(folder.path().size());
    }
    DrivePaths paths() const {
        return DrivePaths({{u'C', folder.path() + "/c"}, {u'D', folder.path() + "/d/"}}, folder.path() + "/c/start/");
    }
    void make(const std::string& name) const { std::ofstream(folder.path() + name) << 'x'; }
    TemporaryFolder folder;
};

} // namespace

TEST(DrivePaths, APathFromTheRootCountsFromTheDrivesFolder) {
    const TwoDrives drives;
    EXPECT_EQ(drives.native(u"C:\\a\\b.txt"), "/c/a/b.txt");
    EXPECT_EQ(drives.native(u"D:\\a\\b.txt"), "/d/a/b.txt");
    EXPECT_EQ(drives.native(u"D:\\"), "/d");
    EXPECT_EQ(drives.native(u"C:\\a\\b\\"), "/c/a/b");
}

TEST(DrivePaths, TheLetterOfADriveHasNoCase) {
    const TwoDrives drives;
    EXPECT_EQ(drives.native(u"c:\\x"), "/c/x");
    EXPECT_EQ(drives.native(u"d:\\x"), "/d/x");
}

TEST(DrivePaths, ADriveWithoutABackslashMeansItsCurrentFolder) {
    const TwoDrives drives;
    EXPECT_EQ(drives.native(u"C:WORK.QQQ"), "/c/start/WORK.QQQ");
    EXPECT_EQ(drives.native(u"D:WORK.QQQ"), "/d/WORK.QQQ");
    EXPECT_EQ(drives.native(u"C:sub\\x"), "/c/start/Sub/x");
    EXPECT_EQ(drives.native(u"C:"), "/c/start");
}

TEST(DrivePaths, ANameWithoutADriveMeansTheStartFolder) {
    const TwoDrives drives;
    EXPECT_EQ(drives.native(u"ZORCLip"), "/c/start/ZORCLip");
    EXPECT_EQ(drives.native(u""), "/c/start");
    EXPECT_EQ(drives.native(u"\\W1"), "/c/W1");
    EXPECT_EQ(drives.native(u"\\a\\b"), "/c/a/b");
}

TEST(DrivePaths, BothSlashesSeparateNames) {
    const TwoDrives drives;
    EXPECT_EQ(drives.native(u"C:/a\\b/c"), "/c/a/b/c");
}

TEST(DrivePaths, NamesAreFoundInOtherCase) {
    const TwoDrives drives;
    drives.make("/c/start/kwork.qqq");
    EXPECT_EQ(drives.native(u"C:KWORK.QQQ"), "/c/start/kwork.qqq");
    EXPECT_EQ(drives.native(u"C:\\START\\Kwork.qqq"), "/c/start/kwork.qqq");
}

TEST(DrivePaths, ADriveThatIsNotThereFails) {
    const DrivePaths paths = TwoDrives().paths();
    EXPECT_THROW(paths.native(u"E:\\x"), RuntimeFailure);
    EXPECT_THROW(paths.native(u":x"), RuntimeFailure);
    EXPECT_THROW(paths.native(u"あ:x"), RuntimeFailure);
}

TEST(DrivePaths, ANameThatNoFileCanHaveFails) {
    const DrivePaths paths = TwoDrives().paths();
    EXPECT_THROW(paths.native(TextView(u"C:\\a\0b", 6)), RuntimeFailure);
    EXPECT_THROW(paths.native(u"C:\\" + Text(5000, u'a')), RuntimeFailure);
    EXPECT_THROW(paths.native(u"C:" + Text(1000000, u'\\')), RuntimeFailure);
}

TEST(DrivePaths, TheCurrentFolderIsTheStartFolder) {
    EXPECT_EQ(DrivePaths({{u'C', "/"}}, "/tmp/名簿/").currentFolder(), u"C:\\tmp\\名簿");
    EXPECT_EQ(DrivePaths({{u'C', "/"}}, "/").currentFolder(), u"C:\\");
    EXPECT_EQ(TwoDrives().paths().currentFolder(), u"C:\\start");
}

TEST(DrivePaths, TheStartFolderBelongsToTheNearestDrive) {
    const DriveTable drives{{u'C', "/"}, {u'D', "/media/ann/stick"}};
    const DrivePaths paths(drives, "/media/ann/stick/tables");
    EXPECT_EQ(paths.currentFolder(), u"D:\\tables");
    EXPECT_EQ(paths.native(u"WORK.QQQ"), "/media/ann/stick/tables/WORK.QQQ");
    EXPECT_EQ(paths.native(u"C:WORK.QQQ"), "/WORK.QQQ");
    EXPECT_EQ(paths.fromNative("/media/ann/stick"), u"D:\\");
    EXPECT_EQ(paths.fromNative("/media/ann/sticky"), u"C:\\media\\ann\\sticky");
}

TEST(DrivePaths, AStartFolderOnNoDriveFails) {
    EXPECT_THROW(DrivePaths({{u'C', "/a"}}, "/b"), RuntimeFailure);
    EXPECT_THROW(DrivePaths({{u'C', "/"}}, "tmp"), RuntimeFailure);
}

TEST(DrivePaths, ANativePathThatHoldsAnyBytesComesBack) {
    const DrivePaths paths({{u'C', "/"}}, "/");
    for (const std::string path : {"/t/back\\slash", "/t/\x96\xBC\x95\xEB", "/t/\\", "/t/🐱/é"}) {
        EXPECT_EQ(paths.native(paths.fromNative(path)), path);
    }
}

TEST(DrivePaths, ANativePathOfTheCommandLineLiesOnDriveC) {
    EXPECT_EQ(DrivePaths::fromCommandLine(u"/srv/a/x.txt"), u"C:\\srv\\a\\x.txt");
    EXPECT_EQ(DrivePaths::fromCommandLine(u"/a\\b"), (Text{u'C', u':', u'\\', u'a', carriedBackslash, u'b'}));
}

TEST(DrivePaths, AnyOtherTextOfTheCommandLineGetsBackslashes) {
    EXPECT_EQ(DrivePaths::fromCommandLine(u"sub/x.txt"), u"sub\\x.txt");
    EXPECT_EQ(DrivePaths::fromCommandLine(u"D:/a\\x.txt"), u"D:\\a\\x.txt");
    EXPECT_EQ(DrivePaths::fromCommandLine(u"x y.txt"), u"x y.txt");
    EXPECT_EQ(DrivePaths::fromCommandLine(u""), u"");
}

TEST(DrivePaths, ANewFileInARootThatCannotBeWrittenGoesToTheCurrentFolder) {
    const TwoDrives drives;
    drives.make("/c/There");
    std::filesystem::permissions(drives.folder.path(), std::filesystem::perms(0755));
    std::filesystem::permissions(drives.folder.path() + "/c", std::filesystem::perms(0555));
    EXPECT_TRUE(holdsForOrdinaryUser([&] {
        return drives.native(u"C:\\W1") == "/c/start/W1" && drives.native(u"\\W1") == "/c/start/W1" &&
               drives.native(u"C:\\there") == "/c/There" && drives.native(u"C:\\new\\W1") == "/c/new/W1";
    }));
    std::filesystem::permissions(drives.folder.path() + "/c", std::filesystem::perms(0755));
}
