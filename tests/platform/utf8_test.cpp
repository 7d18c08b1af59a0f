#include "platform/utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, EveryUnitOutsideTheSurrogatesComesBackAsItWas) {
    for (char32_t c = 0; c < 0x10000; ++c) {
        if (c >= 0xD800 && c < 0xE000)
            continue;
        const Text text(1, static_cast<char16_t>(c));
        ASSERT_EQ(fromUtf8(toUtf8(text)), text) << std::hex << static_cast<std::uint32_t>(c);
    }
}

TEST(Utf8, TheLengthsOfTheFormChangeWhereTheyShould) {
    EXPECT_EQ(toUtf8(u"\u007F\u0080\u07FF\u0800\uFFFF"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(toUtf8(u"\U00010000\U0010FFFF"), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Utf8, ASurrogatePairComesBackAsItWas) {
    EXPECT_EQ(fromUtf8(toUtf8(u"𠮟\U0010FFFF")), u"𠮟\U0010FFFF");
}

TEST(Utf8, ALoneSurrogateBecomesTheReplacementCharacter) {
    EXPECT_EQ(toUtf8(Text{0xD842}), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(Text{0xDFB7, 0xD842}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(Text{0xD842, 0xD842, 0xDFB7}), "\xEF\xBF\xBD\xF0\xA0\xAE\xB7");
}

TEST(Utf8, IllFormedBytesBecomeReplacementCharactersAndTheRestIsRead) {
    EXPECT_EQ(fromUtf8("a\xFF"
                       "b"),
              u"a\uFFFDb");
    EXPECT_EQ(fromUtf8("\x80"), u"\uFFFD");
    EXPECT_EQ(fromUtf8("\xE6\xBC"
                       "b"),
              u"\uFFFDb");
    EXPECT_EQ(fromUtf8("\xE6\xBC"), u"\uFFFD");
    EXPECT_EQ(fromUtf8("\xC0\xAF"), u"\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xE0\x9F\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xF0\x8F\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, Latin1GoesBothWaysAndOneQuestionMarkStandsForWhatItLacks) {
    EXPECT_EQ(utf8FromLatin1("a\xE9\xFF"), "aéÿ");
    EXPECT_EQ(latin1FromUtf8("aéÿ漢𠮟b"), "a\xE9\xFF??b");
}
