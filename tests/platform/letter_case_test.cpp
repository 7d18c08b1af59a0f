#include "platform/letter_case.h"

#include "platform/code_page.h"

#include <gtest/gtest.h>

TEST(LetterCase, FoldsTheFourAlphabetsOfThePage) {
    EXPECT_EQ(upperCase(u"azAZ"), u"AZAZ");
    EXPECT_EQ(lowerCase(u"azAZ"), u"azaz");
    EXPECT_EQ(upperCase(u"\uFF41\uFF5A"), u"\uFF21\uFF3A");
    EXPECT_EQ(lowerCase(u"\uFF21\uFF3A"), u"\uFF41\uFF5A");
    EXPECT_EQ(upperCase(u"\u03B1\u03C1\u03C3\u03C9"), u"\u0391\u03A1\u03A3\u03A9");
    EXPECT_EQ(lowerCase(u"\u0391\u03A1\u03A3\u03A9"), u"\u03B1\u03C1\u03C3\u03C9");
    EXPECT_EQ(upperCase(u"\u0430\u044F\u0451"), u"\u0410\u042F\u0401");
    EXPECT_EQ(lowerCase(u"\u0410\u042F\u0401"), u"\u0430\u044F\u0451");
}

TEST(LetterCase, LeavesEverythingElse) {
    EXPECT_EQ(upperCase(u"1-@[`{~\u3042\uFF71\u00E9\u03C2"), u"1-@[`{~\u3042\uFF71\u00E9\u03C2");
    EXPECT_EQ(lowerCase(u"1-@[`{~\u3042\uFF71\u212B\u00C5"), u"1-@[`{~\u3042\uFF71\u212B\u00C5");
    EXPECT_EQ(upperCase(u""), u"");
}

TEST(LetterCase, KeepsTheNumberOfBytesOfEveryCharacterOfThePage) {
    const CodePage page;
    int folded = 0;
    for (unsigned value = 0; value <= 0xFFFF; ++value) {
        const auto unit = static_cast<char16_t>(value);
        if (!page.canEncode(unit)) {
            continue;
        }
        ASSERT_EQ(page.bytesOf(upperCase(unit)), page.bytesOf(unit)) << value;
        ASSERT_EQ(page.bytesOf(lowerCase(unit)), page.bytesOf(unit)) << value;
        ASSERT_TRUE(page.canEncode(upperCase(unit)) && page.canEncode(lowerCase(unit))) << value;
        if (lowerCase(unit) != unit) {
            ++folded;
            ASSERT_EQ(upperCase(lowerCase(unit)), unit) << value;
        }
    }
    EXPECT_EQ(folded, 26 + 26 + 24 + 33);
}
