#include "platform/posix/folders.h"

#include "platform/failure.h"
#include "support/forked_child.h"
#include "support/real_folder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(Folders, TheParentOfAPathIsItsFolder) {
    EXPECT_EQ(parentOf("/a/b"), "/a");
    EXPECT_EQ(parentOf("/a"), "/");
}

TEST(Folders, LinksAreFollowedToTheNameBehindThemAll) {
    const RealFolder world;
    fs::create_symlink("two", world.native("one"));
    fs::create_symlink(world.native("sub/gone"), world.native("two"));
    EXPECT_EQ(withoutLinks(world.native("one")), world.native("sub/gone"));
    EXPECT_EQ(withoutLinks(world.native("none")), world.native("none"));
    fs::create_symlink("loop", world.native("loop"));
    EXPECT_THROW(withoutLinks(world.native("loop")), RuntimeFailure);
}

TEST(Folders, TheCurrentFolderIsWhereTheProcessStands) {
    const RealFolder world;
    const std::string odd = world.native("\x96\xBC");
    fs::create_directory(odd);
    ForkedChild child([&](const ChildSide&) {
        fs::current_path(odd);
        return nativeCurrentFolder() == odd;
    });
    EXPECT_EQ(child.end(), 0);
}

TEST(Folders, ACurrentFolderThatIsGoneFails) {
    const RealFolder world;
    fs::create_directory(world.native("gone"));
    ForkedChild child([&](const ChildSide&) {
        fs::current_path(world.native("gone"));
        fs::remove(world.native("gone"));
        try {
            nativeCurrentFolder();
        } catch (const RuntimeFailure& failure) {
            return failure.kind == FailureKind::file;
        }
        return false;
    });
    EXPECT_EQ(child.end(), 0);
}
