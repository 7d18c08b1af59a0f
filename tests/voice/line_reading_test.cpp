#include "voice/line_reading.h"

#include "support/test_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct LineWorld : TestWorld {
    LineWorld() { zormod.speech.speechMode = 1; }

    /// The second line of "abc CR de CR CR fgh", caret behind its first character.
    LinePlace secondLine() const { return {{u"de", 1, 1, 0}, 1, 4, 5, 11}; }

    std::vector<std::string> spokenBy(const KeyStroke& stroke, const LinePlace& place, int selection = 0) {
        later();
        BoxView whole{u"abc\rde\r\rfgh", place.caret, place.caret - selection, selection};
        readLineKeys(zormod, stroke, place, selection, [&] { ++wholeBoxes; return whole; }, lastSelLength);
        return takeSpoken();
    }
    int lastSelLength = 0;
    int wholeBoxes = 0;
};

} // namespace

TEST(LineReading, SaysTheLineAndWhereTheTextBeginsAndEnds) {
    EXPECT_EQ(utf8(lineReading({{u"abc", 0, 0, 0}, 0, 3, 0, 9})), "先頭ぎょう。abc");
    EXPECT_EQ(utf8(lineReading({{u"de", 0, 0, 0}, 1, 3, 4, 9})), "。de");
    EXPECT_EQ(utf8(lineReading({{u"fg", 2, 2, 0}, 2, 3, 9, 9})), "最終ぎょう。fg");
    EXPECT_EQ(utf8(lineReading({{u"only", 0, 0, 0}, 0, 1, 0, 4})), "。only");
}

TEST(LineReading, ALineOfNothingOrBlanksIsAnEmptyLine) {
    EXPECT_EQ(utf8(lineReading({{u"", 0, 0, 0}, 1, 3, 4, 9})), "。空行");
    EXPECT_EQ(utf8(lineReading({{u"  ", 0, 0, 0}, 2, 3, 4, 9})), "最終ぎょう。空行");
}

TEST(LineReading, TellsThePositionInPercent) {
    EXPECT_EQ(utf8(percentReading({{}, 0, 1, 5, 10})), "50パーセント位置");
    EXPECT_EQ(utf8(percentReading({{}, 0, 1, 0, 0})), "0パーセント位置");
    EXPECT_EQ(utf8(percentReading({{}, 0, 1, 2000000000, 2000000000})), "100パーセント位置");
}

TEST(LineReading, TheKeysThatMoveAcrossLinesSayTheLine) {
    LineWorld world;
    for (const Key key : {Key::up, Key::down, Key::home, Key::end, Key::pageUp, Key::pageDown}) {
        EXPECT_THAT(world.spokenBy(plainKey(key), world.secondLine()), ElementsAre("de"));
    }
    EXPECT_THAT(world.spokenBy(ctrlKey(Key::home), world.secondLine()), ElementsAre("de"));
    EXPECT_EQ(world.wholeBoxes, 0) << "one line is enough";
}

TEST(LineReading, TheKeysAlongTheLineSayTheCharacter) {
    LineWorld world;
    EXPECT_THAT(world.spokenBy(plainKey(Key::left), world.secondLine()), ElementsAre("ｲｰ"));
    EXPECT_THAT(world.spokenBy(ctrlKey(Key::right), world.secondLine()), ElementsAre("ｲｰ"));
}

TEST(LineReading, SelectionsUseTheWordsOfTheInputBox) {
    LineWorld world;
    EXPECT_THAT(world.spokenBy(shiftKey(Key::right), world.secondLine(), 1),
                ElementsAre("d。ｶﾞｾﾝﾀｸｻﾚﾃｲﾏｽ.ｶｰｿﾙﾜ ﾖﾐｱｹﾞｹﾞﾝｺｳﾉ  ｵﾜﾘﾆ ｱﾘﾏｽ"));
    EXPECT_EQ(world.lastSelLength, 1);
    EXPECT_THAT(world.spokenBy(shiftKey(Key::up), world.secondLine(), 3),
                ElementsAre("c\rd。ｶﾞｾﾝﾀｸｻﾚﾃｲﾏｽ.ｶｰｿﾙﾜ ﾖﾐｱｹﾞｹﾞﾝｺｳﾉ  ﾊｼﾞﾒﾆ ｱﾘﾏｽ"));
    EXPECT_THAT(world.spokenBy(plainKey(Key::down), world.secondLine()), ElementsAre("de"));
    EXPECT_EQ(world.lastSelLength, 0) << "nothing is selected any more";
}

TEST(LineReading, F12SaysLineAndColumnAndCtrlPageDownThePercentage) {
    LineWorld world;
    EXPECT_THAT(world.spokenBy(plainKey(Key::f12), world.secondLine()), ElementsAre("2ぎょう2もじめdキャレットe"));
    EXPECT_THAT(world.spokenBy(ctrlKey(Key::pageDown), world.secondLine()), ElementsAre("45パーセント位置"));
}

TEST(LineReading, OtherKeysAndTheKeysOfTheFormSayNothing) {
    LineWorld world;
    for (const KeyStroke& stroke : {shiftKey(Key::pageDown), plainKey(Key::shift), plainKey(Key::tab), altKey(Key::up)}) {
        EXPECT_THAT(world.spokenBy(stroke, world.secondLine()), IsEmpty());
    }
}
