#include "platform/text_picture.h"

#include <gtest/gtest.h>

TEST(TextPicture, AFieldHoldsTheTextAtItsLeft) {
    EXPECT_EQ(Format(u"**", u"&   &|"), u"**   |");
    EXPECT_EQ(Format(u"12345", u"&   &|"), u"12345|");
    EXPECT_EQ(Format(u"", u"&   &|"), u"     |");
    EXPECT_EQ(Format(u"9 / 11", u"&   &|"), u"9 / 11|") << "a longer text stays whole";
    EXPECT_EQ(Format(u"ab", u"[& &@&]&  &"), u"[ab  ]    ") << "other places are empty";
}

TEST(TextPicture, AnAtSignIsACharacterOrABlank) {
    EXPECT_EQ(Format(u"ab", u"@@@@"), u"  ab");
    EXPECT_EQ(Format(u"", u"@@"), u"  ");
    EXPECT_EQ(Format(u"abc", u"(@@@)"), u"(abc)");
}

TEST(TextPicture, AnAmpersandIsACharacterOrNothing) {
    EXPECT_EQ(Format(u"ab", u"&&&&"), u"ab");
    EXPECT_EQ(Format(u"", u"<&>"), u"");
    EXPECT_EQ(Format(u"ab", u"x&&-&&y"), u"x-aby");
}

TEST(TextPicture, FillsFromTheRightAndPutsTheSurplusFirst) {
    EXPECT_EQ(Format(u"1234567", u"@@@-@@@@"), u"123-4567");
    EXPECT_EQ(Format(u"12345678", u"@@@-@@@@"), u"1234-5678");
    EXPECT_EQ(Format(u"45", u"@@@-@@@@"), u"   -  45");
    EXPECT_EQ(Format(u"abc", u"@"), u"abc");
}

TEST(TextPicture, FoldsTheWholeText) {
    EXPECT_EQ(Format(u"aBc", u">"), u"ABC");
    EXPECT_EQ(Format(u"aBc", u"<"), u"abc");
    EXPECT_EQ(Format(u"aBc", u">@@@@"), u" ABC");
    EXPECT_EQ(Format(u"aBc", u"x<-"), u"xabc-");
    EXPECT_EQ(Format(u"aBc", u"<>"), u"ABC");
    EXPECT_EQ(Format(u"aBc", u"&   &>|"), u"ABC  |");
    EXPECT_EQ(Format(u"aBc", u">x@"), u"xABC") << "literals are not folded";
}

TEST(TextPicture, OtherCharactersAreLiteral) {
    EXPECT_EQ(Format(u"12", u"0.0#%"), u"0.0#%");
    EXPECT_EQ(Format(u"12", u"項目@"), u"項目12");
    EXPECT_EQ(Format(u"12", u"\\@"), u"\\12");
}

TEST(TextPicture, TheEmptyPictureGivesTheText) { EXPECT_EQ(Format(u"abc", u""), u"abc"); }
