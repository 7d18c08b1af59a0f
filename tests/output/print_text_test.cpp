#include "output/print_text.h"

#include "platform/failure.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

std::vector<std::string> wrapped(TextView text, std::size_t columns) {
    return utf8(wrappedLines(CodePage(), text, columns));
}

/// A line of each number from 1 to `count`.
Text numberedLines(int count) {
    Text text;
    for (int i = 0; i < count; ++i) {
        text += u"line\r";
    }
    return text;
}

} // namespace

TEST(PrintText, WrapsAtTheWidthOfThePageWithoutCuttingACharacter) {
    EXPECT_THAT(wrapped(u"abcdef", 4), ElementsAre("abcd", "ef"));
    EXPECT_THAT(wrapped(u"abcd", 4), ElementsAre("abcd"));
    EXPECT_THAT(wrapped(u"漢字と", 5), ElementsAre("漢字", "と"));
    EXPECT_THAT(wrapped(u"ｱ漢ｲ字", 4), ElementsAre("ｱ漢ｲ", "字"));
}

TEST(PrintText, KeepsEmptyLinesAndEndsWithTheLastLine) {
    EXPECT_THAT(wrapped(u"a\r\rb\r", 4), ElementsAre("a", "", "b"));
    EXPECT_THAT(wrapped(u"a\rb", 4), ElementsAre("a", "b"));
    EXPECT_THAT(wrapped(u"", 4), ElementsAre());
}

TEST(PrintText, PutsEachLineBeneathTheLastInsideTheMargins) {
    TestWorld world;
    EXPECT_TRUE(printText(world.zormod, u"one\r\rtwo", u"題"));
    ASSERT_EQ(world.printer.drawn.size(), 2U);
    const auto& first = world.printer.drawn[0];
    const auto& second = world.printer.drawn[1];
    EXPECT_EQ(first.font, "ＭＳ ゴシック");
    EXPECT_EQ(first.points, 10.5);
    EXPECT_EQ(first.x, 1134);
    EXPECT_EQ(first.y, 1134);
    EXPECT_EQ(second.x, 1134);
    EXPECT_EQ(second.y, 1134 + 2 * 210);
    EXPECT_EQ(world.printer.title, "題");
    EXPECT_EQ(world.printer.documents, 1);
}

TEST(PrintText, LinesFillThePageBetweenTheMargins) {
    TestWorld world;
    printText(world.zormod, Text(200, u'x'), u"");
    ASSERT_EQ(world.printer.drawn.size(), 3U);
    EXPECT_EQ(world.printer.drawn[0].text.size(), 91U) << "9638 twips of 105 each";
    EXPECT_EQ(world.printer.drawn[2].text.size(), 200U - 2 * 91U);
}

TEST(PrintText, BreaksThePageWhereNoFurtherLineFits) {
    TestWorld world;
    printText(world.zormod, numberedLines(70), u"");
    ASSERT_EQ(world.printer.drawn.size(), 70U);
    const int perPage = (16838 - 2 * 1134) / 210;
    ASSERT_LT(perPage, 70);
    for (int i = 0; i < 70; ++i) {
        const auto& line = world.printer.drawn[static_cast<std::size_t>(i)];
        EXPECT_EQ(line.page, 1 + i / perPage);
        EXPECT_EQ(line.y, 1134 + i % perPage * 210);
        EXPECT_LE(line.y + 210, 16838 - 1134);
    }
    EXPECT_EQ(world.printer.documents, 1);
}

TEST(PrintText, PrintsNothingWhenTheUserGivesUp) {
    TestWorld world;
    world.printer.givesUp = true;
    EXPECT_FALSE(printText(world.zormod, u"one", u""));
    EXPECT_TRUE(world.printer.drawn.empty());
    EXPECT_EQ(world.printer.documents, 0);
}

TEST(PrintText, AFailureOfThePrinterGoesToWhoeverCalled) {
    TestWorld world;
    world.printer.failsAtText = 1;
    try {
        printText(world.zormod, u"one\rtwo", u"");
        ADD_FAILURE() << "the failure was swallowed";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::printing);
    }
}
