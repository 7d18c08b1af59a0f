#include "platform/fixed_number.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

TEST(FixNumber, HasItsWidthItsPointAndItsDecimals) {
    EXPECT_EQ(fixNumber(5, 3, 0), u"  5.");
    EXPECT_EQ(fixNumber(0.12345, 0, 3), u".123");
    EXPECT_EQ(fixNumber(12.3456, 4, 2), u"  12.35");
    EXPECT_EQ(fixNumber(-12.3456, 4, 2), u" -12.35");
    EXPECT_EQ(fixNumber(3.0, 2, 3), u" 3.000");
    EXPECT_EQ(fixNumber(0.5, 3, 2), u"   .50");
}

TEST(FixNumber, MarksAnOverflowAndKeepsTheRightmostDigits) {
    EXPECT_EQ(fixNumber(12345.6, 3, 1), u"%345.6");
    EXPECT_EQ(fixNumber(-123, 3, 0), u"%123.");
    EXPECT_EQ(fixNumber(5.25, 0, 1), u"%.3");
    EXPECT_EQ(fixNumber(-5, 0, 1), u"%.0");
}

TEST(FixNumber, WithoutAnIntegerPartAZeroVanishes) {
    EXPECT_EQ(fixNumber(0, 0, 3), u".000");
    EXPECT_EQ(fixNumber(-0.25, 0, 2), u".25");
    EXPECT_EQ(fixNumber(0.9996, 0, 3), u"%.000");
}

TEST(FixNumber, RoundsAHalfAwayFromZero) {
    EXPECT_EQ(fixNumber(2.5, 2, 0), u" 3.");
    EXPECT_EQ(fixNumber(-2.5, 2, 0), u"-3.");
    EXPECT_EQ(fixNumber(0.125, 1, 2), u" .13");
    EXPECT_EQ(fixNumber(-0.125, 2, 2), u" -.13");
    EXPECT_EQ(fixNumber(1.005, 2, 2), u" 1.01");
    EXPECT_EQ(fixNumber(0.9996, 3, 3), u"  1.000");
    EXPECT_EQ(fixNumber(9.5, 1, 0), u"%0.");
    EXPECT_EQ(fixNumber(0.05, 3, 1), u"   .1");
}

TEST(FixNumber, OnlyZeroItselfHasAZeroBeforeThePoint) {
    EXPECT_EQ(fixNumber(0, 3, 3), u"  0.000");
    EXPECT_EQ(fixNumber(0.000015, 3, 3), u"   .000");
    EXPECT_EQ(fixNumber(1.5e-20, 3, 3), u"   .000");
    EXPECT_EQ(fixNumber(-0.0001, 3, 3), u"  -.000");
}

TEST(FixNumber, CountsNegativeWidthsAsZero) {
    EXPECT_EQ(fixNumber(5, 0, 0), u".");
    EXPECT_EQ(fixNumber(5, -1, -1), u".");
    EXPECT_EQ(fixNumber(5, 2, -1), u" 5.");
    EXPECT_EQ(fixNumber(0.5, -3, 1), u".5");
}

TEST(FixNumber, ExpandsLargeNumbers) {
    EXPECT_EQ(fixNumber(1.5e16, 18, 1), u" 15000000000000000.0");
    EXPECT_EQ(fixNumber(std::numeric_limits<double>::max(), 3, 0), u"%000.");
    EXPECT_EQ(fixNumber(1e300, 0, 2), u"%.") << "no digits stand behind the point of so long a text";
}

TEST(FixNumber, HasNoMoreDigitsThanATextOf255Characters) {
    EXPECT_EQ(fixNumber(5, 1, 253), u"5." + Text(253, u'0'));
    EXPECT_EQ(fixNumber(5, 1, 300), u"5." + Text(253, u'0'));
}

TEST(FixNumber, TakesTheShorterTextOfASingle) {
    EXPECT_EQ(fixNumber(3.84f, 2, 10), u" 3.8400000000");
    EXPECT_EQ(fixNumber(2.675f, 2, 2), u" 2.68");
    EXPECT_EQ(fixNumber(static_cast<double>(2.675f), 2, 2), u" 2.67");
}

TEST(FixNumber, AgreesWithWholeNumberArithmeticOnRandomDecimals) {
    std::mt19937_64 random(71);
    for (int run = 0; run < 5000; ++run) {
        const int places = static_cast<int>(random() % 6) + 1;
        std::int64_t scale = 1;
        for (int i = 0; i < places; ++i) {
            scale *= 10;
        }
        const auto numerator = static_cast<std::int64_t>(random() % 1000000000) + 1;
        const int decimals = static_cast<int>(random() % static_cast<unsigned>(places)) + 1;
        std::int64_t drop = 1;
        for (int i = decimals; i < places; ++i) {
            drop *= 10;
        }
        const std::int64_t kept = (numerator + drop / 2) / drop; // a half goes up
        const std::int64_t unit = scale / drop;
        const std::int64_t whole = kept / unit;
        const std::string digits = std::to_string(kept % unit + unit).substr(1);
        const std::string expected = (whole == 0 ? "" : std::to_string(whole)) + "." + digits;
        const Text got = fixNumber(static_cast<double>(numerator) / static_cast<double>(scale), 12, decimals);
        ASSERT_EQ(trimmed(got), Text(expected.begin(), expected.end())) << numerator << "/" << scale;
        ASSERT_EQ(got.size(), 13u + static_cast<std::size_t>(decimals));
        const Text mirrored = fixNumber(-static_cast<double>(numerator) / static_cast<double>(scale), 12, decimals);
        ASSERT_EQ(trimmed(mirrored), u"-" + Text(expected.begin(), expected.end()));
    }
}

TEST(ExpandExponent, MovesThePointByTheExponent) {
    EXPECT_EQ(expandExponent(u"1.5E-05"), u".000015");
    EXPECT_EQ(expandExponent(u"1E+07"), u"10000000");
    EXPECT_EQ(expandExponent(u"1.234568E+07"), u"12345680");
    EXPECT_EQ(expandExponent(u"1.2345e2"), u"123.45");
    EXPECT_EQ(expandExponent(u"12.5D-1"), u"1.25");
    EXPECT_EQ(expandExponent(u".5d1"), u"5");
    EXPECT_EQ(expandExponent(u"5E-1"), u".5");
}

TEST(ExpandExponent, TrimsAndPutsTheSignBack) {
    EXPECT_EQ(expandExponent(u" 1E+02"), u"100");
    EXPECT_EQ(expandExponent(u"-1E-16"), u"-.0000000000000001");
    EXPECT_EQ(expandExponent(u"-2.5E+03 "), u"-2500");
    EXPECT_EQ(expandExponent(u"+1E1"), u"+10");
}

TEST(ExpandExponent, LeavesATextWithoutAnExponentAsItIs) {
    EXPECT_EQ(expandExponent(u" 12.5"), u" 12.5");
    EXPECT_EQ(expandExponent(u""), u"");
}

TEST(ExpandExponent, RefusesAnExponentThatNoNumberHas) {
    EXPECT_THROW(expandExponent(u"1E+999999999"), RuntimeFailure);
    EXPECT_THROW(expandExponent(u"1E-999999999"), RuntimeFailure);
}
