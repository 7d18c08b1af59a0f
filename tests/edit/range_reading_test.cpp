#include "edit/range_reading.h"

#include "edit/edit_world.h"

namespace {

/// A table of the items ID (4), 氏名 (10), 年齢 (3, right) whose data end in the middle of the record.
struct ReadingWorld : EditWorld {
    ReadingWorld() {
        people({{u"A1", u"山田", u"30"}, {u"B2", u"佐藤", u"41"}, {u"C3", u"", u"5"}}, 1);
        screen.masks.clear();
    }
    std::string read(const Selection& range) {
        zormod.selection = range;
        later();
        Hread(zormod);
        const Spoken said = takeSpoken();
        return said.size() == 1 ? said[0] : "said " + std::to_string(said.size());
    }
};

TEST(RangeReading, AFixedBlockIsReadRecordByRecordWithOneByteMore) {
    ReadingWorld world;
    // The byte behind item 1 is the first of item 2, a blank here; behind the ID it is half of a name.
    EXPECT_EQ(world.read({1, 1, 2, 1, 2, 0}), "山田       30次記録佐藤       41次記録たいかく範囲あり");
    world.people({{u"A1", u"xyz", u"123"}}, 1);
    EXPECT_EQ(world.read({1, 1, 1, 0, 0, 0}), "A1  x次記録たいかく範囲あり");
}

TEST(RangeReading, TheEndsOfAFixedBlockMayBeTheWrongWayRound) {
    ReadingWorld world;
    EXPECT_EQ(world.read({1, 2, 1, 2, 1, 0}), "山田       30次記録佐藤       41次記録たいかく範囲あり");
}

TEST(RangeReading, FixedRecordsAreReadWhole) {
    ReadingWorld world;
    EXPECT_EQ(world.read({2, 2, 3, 0, 2, 0}), "B2  佐藤       41次記録C3              5次記録記録範囲あり");
}

TEST(RangeReading, FixedItemsAreReadFromTheWholeFile) {
    ReadingWorld world;
    EXPECT_EQ(world.read({3, 2, 2, 2, 2, 0}), "30次記録41次記録5次記録項目範囲あり");
}

TEST(RangeReading, TheByteBehindTheLastItemOfAFullRecordIsItsLineEnd) {
    EditWorld world;
    const std::string full(254, 'x');
    world.table({{u"ID", u"L", 4}, {u"a", u"L", 250}}, {});
    world.writeFile("t.txt", full + "\r\n");
    world.openTable("t.txt");
    world.show(1);
    world.zormod.selection = {1, 1, 1, 1, 1, 0};
    Hread(world.zormod);
    EXPECT_EQ(world.takeSpoken(), Spoken{std::string(250, 'x') + "\r次記録たいかく範囲あり"});
}

TEST(RangeReading, AReadingInsideTheInhibitTimeIsDroppedAndReadsNothing) {
    ReadingWorld world;
    EXPECT_NE(world.read({3, 1, 3, 1, 1, 0}), "said 0");
    Hread(world.zormod);
    EXPECT_EQ(world.takeSpoken(), Spoken());
    world.zormod.speech.speechMode = 0;
    EXPECT_EQ(world.read({3, 1, 3, 1, 1, 0}), "said 0");
}

/// A table of one item that fills the record, `count` records of it.
struct LongWorld : EditWorld {
    explicit LongWorld(int count) {
        table({{u"ID", u"L", 250}, {u"a", u"L", 4}}, {});
        std::string bytes;
        for (int i = 0; i < count; ++i) {
            bytes += std::string(250, 'x') + "    \r\n";
        }
        writeFile("t.txt", bytes);
        openTable("t.txt");
        show(1);
    }
    /// Where the message of a long text stands in the reading of a range of that kind, and what follows it; nothing:
    /// -1.
    std::vector<int> messages(std::int16_t kind, std::int32_t last) {
        zormod.selection = {kind, 1, last, 0, 0, 0};
        later();
        Hread(zormod);
        const std::string said = takeSpoken().at(0);
        std::vector<int> at;
        const std::string message = "50000文字の読み込みバッファがオーバしました";
        for (auto place = said.find(message); place != std::string::npos; place = said.find(message, place + 1)) {
            int records = 0;
            for (auto end = said.find("次記録"); end < place; end = said.find("次記録", end + 1)) {
                ++records;
            }
            at.push_back(records);
        }
        total = 0;
        for (auto end = said.find("次記録"); end != std::string::npos; end = said.find("次記録", end + 1)) {
            ++total;
        }
        return at;
    }
    int total = 0; ///< records in the last reading
};

TEST(RangeReading, AboveFiftyOneThousandBytesItSaysSoOnceAndGoesOn) {
    // A record gives 250 bytes and the six of the word behind it.
    LongWorld world(210);
    EXPECT_EQ(world.messages(1, 199), std::vector<int>());
    EXPECT_EQ(world.messages(1, 200), std::vector<int>{200});
    EXPECT_EQ(world.messages(3, 1), std::vector<int>{200});
    EXPECT_EQ(world.total, 210);
    EXPECT_EQ(world.messages(2, 210), std::vector<int>());
    EXPECT_EQ(world.total, 210);
}

TEST(RangeReading, TheDataOfADrawnRangeHaveNoLimitAndNoByteMore) {
    LongWorld world(300);
    world.zormod.selection = {2, 300, 1, 0, 0, 0};
    RangeYOMi(world.zormod, RangeReading::data);
    const std::string said = world.takeSpoken().at(0);
    EXPECT_EQ(said.substr(0, 30), " ｷﾞｮｳ1 " + std::string(30 - std::string(" ｷﾞｮｳ1 ").size(), 'x'));
    EXPECT_NE(said.find(" ｷﾞｮｳ300 "), std::string::npos);
    EXPECT_EQ(said.find("オーバ"), std::string::npos);
    world.later();
    world.zormod.selection = {1, 1, 1, 0, 0, 0};
    RangeYOMi(world.zormod, RangeReading::data);
    EXPECT_EQ(world.takeSpoken(), Spoken{" ｷﾞｮｳ1 " + std::string(250, 'x')});
}

TEST(RangeReading, TheDataInsideTheInhibitTimeAreDropped) {
    ReadingWorld world;
    world.zormod.selection = {3, 1, 3, 1, 1, 0};
    RangeYOMi(world.zormod, RangeReading::data);
    world.takeSpoken();
    RangeYOMi(world.zormod, RangeReading::data);
    EXPECT_EQ(world.takeSpoken(), Spoken());
}

TEST(RangeReading, TheDataKeepTheirBlanks) {
    ReadingWorld world;
    world.zormod.selection = {3, 1, 3, 1, 1, 0};
    RangeYOMi(world.zormod, RangeReading::data);
    EXPECT_EQ(world.takeSpoken(), Spoken{" ｷﾞｮｳ1 山田       ｷﾞｮｳ2 佐藤       ｷﾞｮｳ3           "});
}

} // namespace
