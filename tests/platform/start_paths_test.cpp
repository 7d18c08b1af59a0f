#include "platform/posix/start_paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

TEST(StartPaths, TheStartFolderIsWhereTheProcessStands) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path("/");
    EXPECT_EQ(startFolder(), "/");
    std::filesystem::current_path(before);
    EXPECT_EQ(startFolder(), before.string());
}

TEST(StartPaths, AFolderThatIsGoneGivesTheRoot) {
    const auto before = std::filesystem::current_path();
    std::string folder = (std::filesystem::temp_directory_path() / "romika-test-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    std::filesystem::current_path(folder);
    ASSERT_EQ(rmdir(folder.c_str()), 0);
    EXPECT_EQ(startFolder(), "/");
    std::filesystem::current_path(before);
}

TEST(StartPaths, ANeighbourLiesInTheFolderOfTheProgram) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string name = std::filesystem::path(self).filename().string();
    EXPECT_EQ(besideProgram(name), self);
}
