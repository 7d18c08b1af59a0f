#include "sheet/record_file.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

/// A world with "t.txt" open as file 1, holding `bytes`.
struct RecordFileWorld : TestWorld {
    explicit RecordFileWorld(std::string_view bytes) {
        writeFile("t.txt", bytes);
        zormod.files.byNumber[1] = files.openRandom(zormod.file.programFolder + u"t.txt");
    }
};

std::string records(int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) {
        bytes += std::string(254, static_cast<char>('a' + i)) + "\r\n";
    }
    return bytes;
}

} // namespace

TEST(RecordFile, CountsWholeRecordsOnly) {
    const auto countOf = [](const std::string& bytes) {
        RecordFileWorld world(bytes);
        return recordCount(world.zormod);
    };
    EXPECT_EQ(countOf(""), 0);
    EXPECT_EQ(countOf(std::string(255, 'x')), 0);
    EXPECT_EQ(countOf(std::string(300, 'x')), 1);
    EXPECT_EQ(countOf(records(3)), 3);
}

TEST(RecordFile, CountFollowsTheFileAndNeedsATable) {
    RecordFileWorld world(records(1));
    world.writeFile("t.txt", records(5));
    EXPECT_EQ(recordCount(world.zormod), 5);
    closeFile(world.zormod, 1);
    EXPECT_THROW(recordCount(world.zormod), RuntimeFailure);
}

TEST(RecordFile, ReadsARecordByItsNumber) {
    RecordFileWorld world(records(3));
    Bytes rec;
    readRecord(world.zormod, 1, 2, rec);
    EXPECT_EQ(rec, std::string(254, 'b') + "\r\n");
}

TEST(RecordFile, AReadPastTheEndGivesTheRecordReadBefore) {
    RecordFileWorld world(records(2));
    Bytes rec;
    readRecord(world.zormod, 1, 1, rec);
    readRecord(world.zormod, 1, 9, rec);
    EXPECT_EQ(rec, std::string(254, 'a') + "\r\n");
}

TEST(RecordFile, ARecordNumberBelowOneIsAFailure) {
    RecordFileWorld world(records(2));
    Bytes rec;
    EXPECT_THROW(readRecord(world.zormod, 1, 0, rec), RuntimeFailure);
    EXPECT_THROW(writeRecord(world.zormod, 1, -3, rec), RuntimeFailure);
    EXPECT_EQ(world.bytesOf("t.txt"), records(2));
}

TEST(RecordFile, WritesInPlaceAndFillsAShortRecordWithNul) {
    RecordFileWorld world(records(2));
    writeRecord(world.zormod, 1, 1, "xyz");
    EXPECT_EQ(world.bytesOf("t.txt"), "xyz" + std::string(253, '\0') + records(2).substr(256));
}

TEST(RecordFile, ATailIsOverwrittenFromItsFirstByte) {
    RecordFileWorld world(std::string(300, 'x'));
    writeRecord(world.zormod, 1, 2, endedRecord("new"));
    EXPECT_EQ(world.bytesOf("t.txt"), std::string(256, 'x') + "new" + std::string(251, ' ') + "\r\n");
    EXPECT_EQ(recordCount(world.zormod), 2);
}

TEST(RecordFile, AnEndedRecordHasItsLineEndAtBytes255And256) {
    EXPECT_EQ(endedRecord(std::string(256, 'x')), std::string(254, 'x') + "\r\n");
    EXPECT_EQ(endedRecord("ab"), "ab" + std::string(252, ' ') + "\r\n");
}

TEST(RecordFile, FilesCloseByNumberOrAllAtOnce) {
    RecordFileWorld world(records(1));
    world.zormod.files.byNumber[2] = world.files.openRandom(world.zormod.file.programFolder + u"u.txt");
    closeFile(world.zormod, 2);
    EXPECT_FALSE(world.zormod.files.byNumber[2]);
    EXPECT_TRUE(hasTable(world.zormod));
    closeAllFiles(world.zormod);
    EXPECT_FALSE(hasTable(world.zormod));
    EXPECT_THROW(closeFile(world.zormod, 7), RuntimeFailure);
}

TEST(RecordFile, PathsJoinDriveAndName) {
    EXPECT_EQ(fullPath(u"C", u"\\a\\b.txt"), u"C:\\a\\b.txt");
}
