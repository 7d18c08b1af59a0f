#include "voice/typing_reading.h"

#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

using Said = std::vector<std::string>;

std::string described(TextView before, TextView now) {
    return utf8(describeTextChange(before, now));
}

/// A world whose current item is ten bytes wide.
struct TypingWorld : TestWorld {
    TypingWorld() {
        zormod.position.curItem = 1;
        zormod.items.itemWidth[1] = 10;
        zormod.speech.speechMode = 1;
    }
    /// What the change event of the input box says.
    std::string inputReading(TextView before, TextView now) const {
        return utf8(withCharacterName(describeInputChange(zormod, before, now), before, now));
    }
};

} // namespace

TEST(TextChange, TypingAtTheEndNeedsNoWord) {
    EXPECT_EQ(described(u"abc", u"abcx"), "x");
    EXPECT_EQ(described(u"", u"x"), "x");
    EXPECT_EQ(described(u"abc", u"abcxyz"), "xyz");
}

TEST(TextChange, AnInsertionInsideIsNamed) {
    EXPECT_EQ(described(u"abc", u"abxc"), "x 挿入");
    EXPECT_EQ(described(u"abc", u"xabc"), "x 挿入");
    EXPECT_EQ(described(u"abc", u"a山田bc"), "山田 挿入");
}

TEST(TextChange, TheDifferenceIsTakenFromTheLeft) {
    // A doubled character counts as added behind the first of the two.
    EXPECT_EQ(described(u"aab", u"aaab"), "a 挿入");
    EXPECT_EQ(described(u"aa", u"aaa"), "a");
    EXPECT_EQ(described(u"abc", u"xyzabcd"), "xyza 挿入");
    EXPECT_EQ(described(u"aab", u"ab"), "a 削除");
}

TEST(TextChange, ARemovalIsNamed) {
    EXPECT_EQ(described(u"abc", u"ac"), "b 削除");
    EXPECT_EQ(described(u"abc", u"ab"), "c 削除");
    EXPECT_EQ(described(u"abc", u""), "abc 削除");
    EXPECT_EQ(described(u"abcdef", u"aef"), "bcd 削除");
}

TEST(TextChange, AReplacementOfEqualLengthIsNamedByTheNewCharacters) {
    EXPECT_EQ(described(u"abc", u"axc"), "x うわがき");
    EXPECT_EQ(described(u"abcd", u"axyd"), "xy うわがき");
    EXPECT_EQ(described(u"abcd", u"xbcy"), "xbcy うわがき");
    EXPECT_EQ(described(u"abc", u"xyz"), "xyz うわがき");
    EXPECT_EQ(described(u"aaa", u"aba"), "b うわがき");
}

TEST(TextChange, EqualTextsGiveNothing) {
    EXPECT_EQ(described(u"abc", u"abc"), "");
    EXPECT_EQ(described(u"", u""), "");
    const TypingWorld world;
    EXPECT_EQ(describeInputChange(world.zormod, u"abc", u"abc"), u"");
}

TEST(InputChange, TellsTheBytesThatAreLeft) {
    const TypingWorld world;
    EXPECT_EQ(utf8(describeInputChange(world.zormod, u"ab", u"abx")), "x ざん7バイト");
    EXPECT_EQ(utf8(describeInputChange(world.zormod, u"山", u"山田")), "田 ざん6バイト");
    EXPECT_EQ(utf8(describeInputChange(world.zormod, u"ｱ", u"")), "ｱ 削除 ざん10バイト");
}

TEST(InputChange, TheBytesLeftMayFallBelowNothing) {
    const TypingWorld world;
    EXPECT_EQ(utf8(remainingBytes(world.zormod, u"12345678901")), " ざん-1バイト");
    EXPECT_EQ(utf8(remainingBytes(world.zormod, u"1234567890")), " ざん0バイト");
}

TEST(InputChange, NamesTheCharacterOfASingleStep) {
    const TypingWorld world;
    EXPECT_EQ(world.inputReading(u"abc", u"abcx"), "ｴｯｸｽ ざん6バイト");
    EXPECT_EQ(world.inputReading(u"abc", u"abxc"), "ｴｯｸｽ 挿入 ざん6バイト");
    EXPECT_EQ(world.inputReading(u"abc", u"ac"), "ﾋﾞｰ 削除 ざん8バイト");
    EXPECT_EQ(world.inputReading(u"", u" "), "ﾊﾝｶｸ ｽﾍﾟｰｽ ざん9バイト");
}

TEST(InputChange, SaysSeveralCharactersAsTheyAre) {
    const TypingWorld world;
    EXPECT_EQ(world.inputReading(u"a", u"axyz"), "xyz ざん6バイト");
    EXPECT_EQ(world.inputReading(u"axyz", u"a"), "xyz 削除 ざん9バイト");
}

TEST(InputChange, DoesNotNameAReplacedCharacter) {
    const TypingWorld world;
    EXPECT_EQ(world.inputReading(u"abc", u"axc"), "x うわがき ざん7バイト");
}

TEST(CharacterName, TakesThePlaceOfTheFirstCharacterOnly) {
    EXPECT_EQ(withCharacterName(u"xa", u"ab", u"abx"), u"ｴｯｸｽa");
    EXPECT_EQ(withCharacterName(u"xa", u"ab", u"abxy"), u"xa");
    EXPECT_EQ(withCharacterName(u"xa", u"ab", u"ax"), u"xa");
    EXPECT_EQ(withCharacterName(u"", u"", u"x"), u"");
}

TEST(TextBoxChange, SaysTheChangeWithoutBytes) {
    TypingWorld world;
    sayTextChange(world.zormod, u"ab", u"abA");
    EXPECT_EQ(world.takeSpoken(), Said{"ｵｵﾓｼﾞｴｰ"});
    world.later();
    sayTextChange(world.zormod, u"ab", u"b");
    EXPECT_EQ(world.takeSpoken(), Said{"ｴｰ 削除"});
    world.later();
    sayTextChange(world.zormod, u"ab", u"ab123");
    EXPECT_EQ(world.takeSpoken(), Said{"123"});
}

TEST(TextBoxChange, SaysNothingForEqualTextsAndLeavesTheThrottleOpen) {
    TypingWorld world;
    sayTextChange(world.zormod, u"ab", u"ab");
    EXPECT_EQ(world.takeSpoken(), Said{});
    EXPECT_EQ(world.zormod.speech.lastSpokenTime, 0);
    sayTextChange(world.zormod, u"ab", u"abc");
    EXPECT_EQ(world.takeSpoken(), Said{"ｼｰ"});
}

TEST(TextBoxChange, IsDroppedInsideTheInhibitTime) {
    TypingWorld world;
    sayTextChange(world.zormod, u"", u"a");
    sayTextChange(world.zormod, u"a", u"ab");
    EXPECT_EQ(world.takeSpoken(), Said{"ｴｰ"});
}
