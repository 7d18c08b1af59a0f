#include "platform/posix/drive_table.h"

#include <gtest/gtest.h>

#include <cstdio>

TEST(DriveTable, WithoutMediaThereIsDriveC) {
    EXPECT_EQ(drivesFor({}, "ann"), (DriveTable{{u'C', "/"}}));
}

TEST(DriveTable, TheUsersMediaGetLettersFromDOnInTheOrderOfTheirPaths) {
    EXPECT_EQ(drivesFor({"/", "/run/media/ann/B", "/media/ann/Z", "/media/ann/A 1", "/media/ann/A 1"}, "ann"),
              (DriveTable{{u'C', "/"}, {u'D', "/media/ann/A 1"}, {u'E', "/media/ann/Z"}, {u'F', "/run/media/ann/B"}}));
}

TEST(DriveTable, OtherMountsAreNoDrives) {
    const std::vector<std::string> mounts{"/media/bob/X",   "/media/ann", "/media/ann/",
                                          "/media/ann/x/y", "/mnt/z",     "/media/anna/q"};
    EXPECT_EQ(drivesFor(mounts, "ann").size(), 1u);
    EXPECT_EQ(drivesFor({"/media//x"}, "").size(), 1u);
}

TEST(DriveTable, BehindZThereAreNoLetters) {
    std::vector<std::string> mounts;
    for (char name = '0'; name < '0' + 40; ++name) {
        mounts.push_back(std::string("/media/ann/") + name);
    }
    const DriveTable drives = drivesFor(mounts, "ann");
    EXPECT_EQ(drives.size(), 24u);
    EXPECT_EQ(drives.rbegin()->first, u'Z');
}

TEST(DriveTable, TheTableOfThisMachineHasDriveC) { EXPECT_EQ(defaultDrives().at(u'C'), "/"); }
