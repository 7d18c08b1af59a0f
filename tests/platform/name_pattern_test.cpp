#include "platform/name_pattern.h"

#include <gtest/gtest.h>

TEST(NamePattern, StarsAndQuestionMarksWithoutRegardToCase) {
    EXPECT_TRUE(fitsPattern(u"kmeibo.txt", u"K*.TXT"));
    EXPECT_TRUE(fitsPattern(u"K家計簿.txt", u"K*.TXT"));
    EXPECT_TRUE(fitsPattern(u"K.TXT", u"K*.TXT"));
    EXPECT_FALSE(fitsPattern(u"meibo.txt", u"K*.TXT"));
    EXPECT_FALSE(fitsPattern(u"kmeibo.txt.bak", u"K*.TXT"));
    EXPECT_TRUE(fitsPattern(u"ka.txt", u"k?*.txt"));
    EXPECT_FALSE(fitsPattern(u"k.txt", u"k?*.txt"));
    EXPECT_TRUE(fitsPattern(u"a.b.c", u"*.c"));
    EXPECT_TRUE(fitsPattern(u"", u"*"));
    EXPECT_FALSE(fitsPattern(u"", u"?"));
}

TEST(NamePattern, StarPointStarFitsEveryName) {
    EXPECT_TRUE(fitsPattern(u"readme", u"*.*"));
    EXPECT_TRUE(fitsPattern(u"a.b", u"*.*"));
}

TEST(NamePattern, ManyStarsStayQuick) {
    EXPECT_FALSE(fitsPattern(Text(2000, u'a'), u"*a*a*a*a*a*a*a*a*a*b"));
}
