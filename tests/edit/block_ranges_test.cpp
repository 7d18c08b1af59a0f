#include "edit/block_ranges.h"

#include "edit/edit_world.h"

#include <gmock/gmock.h>

using ::testing::EndsWith;
using ::testing::StartsWith;

namespace {

/// Twelve records of the items 0 to 2.
struct BlockWorld : EditWorld {
    explicit BlockWorld(TextView taskWord = u"BTYU", int records = 12) {
        numbered(records);
        zormod.taskWord = Text(taskWord);
    }
    /// Presses the button with these texts in the boxes.
    BlockRanges::Outcome press(BlockRanges& ranges, TextView records, TextView items) {
        ranges.records = Text(records);
        ranges.items = Text(items);
        return ranges.carryOut();
    }
    std::string answer(int index) {
        const auto* text = std::get_if<Text>(&zormod.results.answers[index]);
        return text == nullptr ? "no text" : utf8(*text);
    }
};

using Outcome = BlockRanges::Outcome;

} // namespace

TEST(BlockRanges, TwoListsAreHandedOnAsTheyWereWritten) {
    for (const TextView word : {u"PRINT", u"BTYU", u"MLINE", u"MLINE2"}) {
        BlockWorld world(word);
        BlockRanges ranges(world.zormod);
        EXPECT_EQ(world.press(ranges, u" 10-12/3/10-12 ", u" 2/0-1 "), Outcome::chosen);
        EXPECT_EQ(world.answer(0), "10-12/3/10-12");
        EXPECT_EQ(world.answer(1), "2/0-1");
        EXPECT_EQ(utf8(world.zormod.taskWord), utf8(word));
        EXPECT_EQ(world.beeper.count, 0);
    }
}

TEST(BlockRanges, AnEmptyBoxIsFilledWithTheWholeRangeAndASecondPressGoesOn) {
    BlockWorld world;
    BlockRanges ranges(world.zormod);
    EXPECT_EQ(world.press(ranges, u"  ", u""), Outcome::filledIn);
    EXPECT_EQ(utf8(ranges.records), "1-12");
    EXPECT_EQ(utf8(ranges.items), "") << "one box at a time";
    EXPECT_EQ(world.beeper.count, 1);
    EXPECT_EQ(ranges.carryOut(), Outcome::filledIn);
    EXPECT_EQ(utf8(ranges.items), "0-2");
    EXPECT_EQ(world.beeper.count, 2);
    EXPECT_EQ(world.answer(1), "");
    EXPECT_EQ(ranges.carryOut(), Outcome::chosen);
    EXPECT_EQ(world.answer(0), "1-12");
    EXPECT_EQ(world.answer(1), "0-2");
    EXPECT_EQ(world.beeper.count, 2);
}

TEST(BlockRanges, TheItemsOfATrendBeginBehindTheId) {
    for (const TextView word : {u"MLINE", u"MLINE0", u"MLINE3"}) {
        BlockWorld world(word);
        BlockRanges ranges(world.zormod);
        EXPECT_EQ(world.press(ranges, u"1", u""), Outcome::filledIn);
        EXPECT_EQ(utf8(ranges.items), "1-2") << utf8(word);
    }
    for (const TextView word : {u"PRINT", u"BTYU", u""}) {
        BlockWorld world(word);
        BlockRanges ranges(world.zormod);
        EXPECT_EQ(world.press(ranges, u"1", u""), Outcome::filledIn);
        EXPECT_EQ(utf8(ranges.items), "0-2") << utf8(word);
    }
}

TEST(BlockRanges, ABoxThatIsEmptiedAgainStandsForTheWholeRange) {
    for (const auto& [word, records, items] :
         {std::tuple(u"BTYU", "1-12", "0-2"), std::tuple(u"PRINT", "1-12", "0-2"), std::tuple(u"MLINE", "", "1-2")}) {
        BlockWorld world(word);
        BlockRanges ranges(world.zormod);
        world.press(ranges, u"", u"");
        world.press(ranges, u"", u"");
        EXPECT_EQ(world.press(ranges, u"", u""), Outcome::chosen);
        EXPECT_EQ(world.answer(0), records) << utf8(word);
        EXPECT_EQ(world.answer(1), items) << utf8(word);
    }
}

TEST(BlockRanges, AFaultInTheRecordsIsToldBeforeTheItemsAreLookedAt) {
    BlockWorld world;
    world.dialogs.expectedMessages = 1;
    BlockRanges ranges(world.zormod);
    EXPECT_EQ(world.press(ranges, u"9-13", u"x"), Outcome::faultInRecords);
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).title), "記録ﾌﾞﾛｯｸ指定のあやまり");
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).text), "レコード番号がオーバ");
    EXPECT_EQ(world.answer(0), "");
    EXPECT_EQ(utf8(ranges.records), "9-13");
}

TEST(BlockRanges, AFaultInTheItemsIsTold) {
    BlockWorld world;
    world.dialogs.expectedMessages = 1;
    BlockRanges ranges(world.zormod);
    EXPECT_EQ(world.press(ranges, u"1", u"0-3"), Outcome::faultInItems);
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).title), "項目ﾌﾞﾛｯｸ指定のあやまり");
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).text), "指定値が最大項目番号をオーバ");
    EXPECT_EQ(world.answer(0), "");
    EXPECT_EQ(world.press(ranges, u"1", u"0-2"), Outcome::chosen);
}

TEST(BlockRanges, AFileWithoutRecordsHasNoRange) {
    BlockWorld world(u"BTYU", 0);
    world.dialogs.expectedMessages = 1;
    BlockRanges ranges(world.zormod);
    EXPECT_EQ(world.press(ranges, u"", u"0"), Outcome::filledIn);
    EXPECT_EQ(utf8(ranges.records), "1-0");
    EXPECT_EQ(ranges.carryOut(), Outcome::faultInRecords);
}

TEST(BlockRanges, AskingTellsWhetherListsWereGiven) {
    BlockWorld world;
    world.forms.scripts[u"FrmBROCK"] = [&] {
        BlockRanges ranges(world.zormod);
        world.press(ranges, u"3", u"1");
    };
    EXPECT_TRUE(askBlockRanges(world.zormod));
    EXPECT_EQ(world.answer(0), "3");
    world.forms.scripts[u"FrmBROCK"] = [&] { BlockRanges ranges(world.zormod); };
    EXPECT_FALSE(askBlockRanges(world.zormod)) << "given up: what was chosen before is gone";
    EXPECT_EQ(world.answer(0), "");
}

TEST(BlockRanges, TheGuidanceIsOneTextAndTheLabelNineLines) {
    EXPECT_EQ(utf8(BlockRanges::guidance()),
              "範囲を数字と と　ﾏｲﾅｽ記号　および　スラッシュ　を使って記述してください。"
              "第10記録から１５記録までと、第80記録より100記録まで、それと、第３記録を指定する場合"
              "10-15/80-100/3　というように、記録範囲指定欄に記入するスラッシュで区切り、いくつでも範囲を指定できます。"
              "項目の範囲を指定する場合も同じように"
              "0-3/6/9-12　とすると第0から3項目､第6､第9から12項目を指定した事になります。"
              "なお、空欄のままの場合はすべての記録､項目を指定したことになります。"
              "また作業は、記録項目番号の大小に関わらず記述されたﾌﾞﾛｯｸの順に行われます");
    BlockWorld world;
    const BlockRanges ranges(world.zormod);
    const Text label = ranges.label();
    EXPECT_EQ(std::count(label.begin(), label.end(), u'\r'), 8);
    EXPECT_THAT(utf8(label), StartsWith("範囲を｢123...｣ と｢-｣ ｢/｣を使って記述してください\r"));
    EXPECT_THAT(utf8(label), EndsWith("\rまた作業は記録項目番号の大小に関わらず記述されたﾌﾞﾛｯｸの順に行われます"));
}

TEST(BlockRanges, UnderPrintTheFirstLineOfTheLabelIsAnother) {
    BlockWorld world(u"PRINT");
    EXPECT_THAT(utf8(BlockRanges(world.zormod).label()),
                StartsWith("範囲を｢123...｣ と｢-｣｢/｣を使って記述してください\r"));
}
