#include "sheet/record_scan.h"

#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

struct ScanWorld : TestWorld {
    explicit ScanWorld(int records) {
        table({{u"ID", u"L", 10}}, {});
        std::string bytes;
        for (int record = 1; record <= records; ++record) {
            std::string row = std::to_string(record);
            row.resize(254, ' ');
            bytes += row + "\r\n";
        }
        writeFile("t.txt", bytes);
        openTable("t.txt");
    }
    /// The numbers of the records that a run hands out, after checking that each has the bytes of its number.
    std::vector<int> run(std::int32_t first, std::int32_t last) {
        std::vector<int> records;
        eachRecord(zormod, first, last, [&](std::int32_t record, BytesView bytes) {
            EXPECT_EQ(bytes.size(), 256u);
            EXPECT_EQ(std::stoi(std::string(bytes.substr(0, 10))), record);
            EXPECT_EQ(bytes.substr(254), "\r\n");
            records.push_back(record);
        });
        return records;
    }
};

TEST(RecordScan, HandsOutTheRecordsOfTheRangeInOrder) {
    ScanWorld world(5);
    EXPECT_EQ(world.run(2, 4), (std::vector<int>{2, 3, 4}));
    EXPECT_EQ(world.run(3, 3), std::vector<int>{3});
    EXPECT_EQ(world.run(4, 3), std::vector<int>());
}

TEST(RecordScan, CutsTheRangeToTheFile) {
    ScanWorld world(3);
    EXPECT_EQ(world.run(-5, INT32_MAX), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(world.run(4, 9), std::vector<int>());
    ScanWorld empty(0);
    EXPECT_EQ(empty.run(1, 1), std::vector<int>());
}

TEST(RecordScan, GoesOnFromBlockToBlock) {
    ScanWorld world(3000);
    const std::vector<int> records = world.run(2, 2999);
    ASSERT_EQ(records.size(), 2998u);
    EXPECT_EQ(records.front(), 2);
    EXPECT_EQ(records.back(), 2999);
}

TEST(RecordScan, ATailThatIsNoRecordIsNotHandedOut) {
    ScanWorld world(2);
    world.writeFile("t.txt", world.bytesOf("t.txt") + "tail");
    EXPECT_EQ(world.run(1, 9), (std::vector<int>{1, 2}));
}

} // namespace
