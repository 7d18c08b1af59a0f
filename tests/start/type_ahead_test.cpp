#include "start/type_ahead.h"

#include <gtest/gtest.h>

namespace {

const std::vector<Text> names = {u"Apple", u"apricot", u"Banana", u"cherry", u"か.txt"};

} // namespace

TEST(TypeAhead, GoesToTheNextLineThatBeginsWithTheLetter) {
    TypeAhead ahead;
    EXPECT_EQ(ahead.type(u'b', 10, names, -1), 2);
    EXPECT_EQ(ahead.type(u'C', 20, names, 2), 3);
    EXPECT_EQ(ahead.type(u'a', 30, names, 3), 0);
    EXPECT_EQ(ahead.type(u'か', 40, names, 0), 4);
}

TEST(TypeAhead, TheSameLetterAgainGoesOnAndRoundTheEnd) {
    TypeAhead ahead;
    EXPECT_EQ(ahead.type(u'a', 10, names, -1), 0);
    EXPECT_EQ(ahead.type(u'a', 10.5, names, 0), 1);
    EXPECT_EQ(ahead.type(u'a', 11, names, 1), 0);
}

TEST(TypeAhead, LettersTypedQuicklyAreOneBeginning) {
    TypeAhead ahead;
    EXPECT_EQ(ahead.type(u'a', 10, names, -1), 0);
    EXPECT_EQ(ahead.type(u'p', 10.3, names, 0), 0);
    EXPECT_EQ(ahead.type(u'r', 10.6, names, 0), 1);
    EXPECT_EQ(ahead.type(u'b', 11.7, names, 1), 2);
}

TEST(TypeAhead, AfterMidnightANewBeginningStarts) {
    TypeAhead ahead;
    ahead.type(u'a', 86399.9, names, -1);
    EXPECT_EQ(ahead.type(u'b', 0.1, names, 0), 2);
}

TEST(TypeAhead, NothingFoundStays) {
    TypeAhead ahead;
    EXPECT_EQ(ahead.type(u'z', 10, names, 1), std::nullopt);
    EXPECT_EQ(ahead.type(u'a', 20, {}, -1), std::nullopt);
}

TEST(TypeAhead, ALetterThatAllShareMayBeLeftOut) {
    const std::vector<Text> tables = {u"kapple.txt", u"kbanana.txt", u"K家計簿.txt"};
    TypeAhead ahead;
    EXPECT_EQ(ahead.type(u'b', 10, tables, -1), std::nullopt);
    EXPECT_EQ(ahead.type(u'b', 20, tables, -1, true), 1);
    EXPECT_EQ(ahead.type(u'家', 30, tables, 1, true), 2);
    EXPECT_EQ(ahead.type(u'k', 40, tables, -1, true), 0);
    EXPECT_EQ(ahead.type(u'B', 40.5, tables, 0, true), 1);
}
