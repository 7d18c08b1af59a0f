#include "platform/number_picture.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

TEST(NumberPicture, WritesThePicturesOfTheReports) {
    EXPECT_EQ(Format(12.3456, u"####.000|"), u"12.346|");
    EXPECT_EQ(Format(12.3456, u"#######0|"), u"12|");
    EXPECT_EQ(Format(12.3456, u"###0    |"), u"12    |");
    EXPECT_EQ(Format(12.3456, u" ###.000|"), u" 12.346|");
    EXPECT_EQ(Format(12.3456, u"###.#0|"), u"12.35|");
    EXPECT_EQ(Format(12.3456, u"   ##0|"), u"   12|");
    EXPECT_EQ(Format(12.3456, u"    ####"), u"    12");
    EXPECT_EQ(Format(12.3456, u"     ###.00%        "), u"     1234.56%        ");
    EXPECT_EQ(Format(12, u"###/"), u"12/");
    EXPECT_EQ(Format(12, u"###] ***** (n="), u"12] ***** (n=");
    EXPECT_EQ(Format(12, u"###)"), u"12)");
}

TEST(NumberPicture, WritesLiteralsAroundAndBehindTheNumber) {
    EXPECT_EQ(Format(3, u"項目 ###:"), u"項目 3:");
    EXPECT_EQ(Format(3, u"群## t|"), u"群3 t|");
    EXPECT_EQ(Format(1.5, u"00000.00000　～ "), u"00001.50000　～ ");
    EXPECT_EQ(Format(7, u" X(00)"), u" X(07)");
    EXPECT_EQ(Format(7, u"  0000  I "), u"  0007  I ");
    EXPECT_EQ(Format(0.0001, u"  eps                  = 0.00000"), u"  eps                  = 0.00010");
    EXPECT_EQ(Format(0, u"= ###0"), u"= 0");
}

TEST(NumberPicture, AHashPrintsNothingForZero) {
    EXPECT_EQ(Format(0, u" ###.000|"), u" .000|");
    EXPECT_EQ(Format(0.0, u"####.000|"), u".000|");
    EXPECT_EQ(Format(0, u"    ####"), u"    ");
    EXPECT_EQ(Format(0.25, u"###.##"), u".25");
    EXPECT_EQ(Format(0, u"#"), u"");
}

TEST(NumberPicture, TheLastZeroFixesTheLeastDecimals) {
    EXPECT_EQ(Format(12, u"###.#0|"), u"12.00|");
    EXPECT_EQ(Format(12.5, u"0.0##"), u"12.5");
    EXPECT_EQ(Format(12.5, u"0.###"), u"12.5");
    EXPECT_EQ(Format(12, u"0.###"), u"12.");
    EXPECT_EQ(Format(12.34567, u"0.0##"), u"12.346");
    EXPECT_EQ(Format(3.5, u"####.000"), u"3.500");
}

TEST(NumberPicture, TheFirstZeroFixesTheLeastWholeDigits) {
    EXPECT_EQ(Format(5, u"#0##"), u"005");
    EXPECT_EQ(Format(5, u"000"), u"005");
    EXPECT_EQ(Format(12345, u"000"), u"12345");
}

TEST(NumberPicture, RoundsTheDecimalTextAHalfAwayFromZero) {
    EXPECT_EQ(Format(1.005, u".00"), u"1.01");
    EXPECT_EQ(Format(3.84f, u"######.0000000000"), u"3.8400000000");
    EXPECT_EQ(Format(2.5, u"0"), u"3");
    EXPECT_EQ(Format(-2.5, u"0"), u"-3");
    EXPECT_EQ(Format(0.5, u"#"), u"1");
    EXPECT_EQ(Format(999.995, u"0.00"), u"1000.00");
    EXPECT_EQ(Format(2.675f, u"0.00"), u"2.68");
}

TEST(NumberPicture, AMinusComesBeforeThePictureUnlessTheNumberRoundsToZero) {
    EXPECT_EQ(Format(-12.3456, u" ###.000|"), u"- 12.346|");
    EXPECT_EQ(Format(-3, u"X(00)"), u"-X(03)");
    EXPECT_EQ(Format(-0.0004, u" ###.000|"), u" .000|");
    EXPECT_EQ(Format(-0.0005, u" ###.000|"), u"- .001|");
    EXPECT_EQ(Format(-0.4, u"0"), u"0");
}

TEST(NumberPicture, APercentSignShiftsTheTextByTwoPlacesFirst) {
    EXPECT_EQ(Format(0.5, u"0%"), u"50%");
    EXPECT_EQ(Format(0.00125, u"0.00%"), u"0.13%");
    EXPECT_EQ(Format(0.07, u"###.00%"), u"7.00%");
    EXPECT_EQ(Format(1, u"0%%"), u"10000%%");
    EXPECT_EQ(Format(0, u"0.0%"), u"0.0%");
}

TEST(NumberPicture, ACommaBetweenPlacesGroupsTheDigits) {
    EXPECT_EQ(Format(1234567, u"#,##0"), u"1,234,567");
    EXPECT_EQ(Format(123, u"#,##0"), u"123");
    EXPECT_EQ(Format(-1234.5, u"#,##0.00"), u"-1,234.50");
    EXPECT_EQ(Format(0, u"#,##0"), u"0");
    EXPECT_EQ(Format(5, u"0,000"), u"0,005");
    EXPECT_EQ(Format(1234567890, u"#,#"), u"1,234,567,890");
}

TEST(NumberPicture, ACommaBehindTheLastPlaceDividesByAThousand) {
    EXPECT_EQ(Format(1234567, u"0,"), u"1235");
    EXPECT_EQ(Format(1234567, u"0,,"), u"1");
    EXPECT_EQ(Format(1234567, u"#,##0,.0"), u"1,234.6");
}

TEST(NumberPicture, OtherCommasAndPointsAreLiteral) {
    EXPECT_EQ(Format(5, u"a, 0"), u"a, 5");
    EXPECT_EQ(Format(5, u"0 ,"), u"5 ,");
    EXPECT_EQ(Format(1.25, u"0.0,0"), u"1.2,5");
    EXPECT_EQ(Format(1.25, u"0.0.0"), u"1.2.5");
}

TEST(NumberPicture, PutsSurplusDigitsAtTheFirstPlace) {
    EXPECT_EQ(Format(123456789, u"x##-##y"), u"x1234567-89y");
    EXPECT_EQ(Format(12.5, u"x.0"), u"x12.5");
    EXPECT_EQ(Format(5, u"#-#"), u"-5");
}

TEST(NumberPicture, WritesVeryLargeAndVerySmallNumbersInFull) {
    EXPECT_EQ(Format(1e20, u"0"), u"100000000000000000000");
    EXPECT_EQ(Format(1e-20, u"0.0"), u"0.0");
    EXPECT_EQ(Format(12345678.0f, u"0"), u"12345680");
    EXPECT_EQ(Format(std::numeric_limits<std::int64_t>::min(), u"0"), u"-9223372036854775808");
}

TEST(NumberPicture, WithoutAPlaceShowsItsCharactersAndTheEmptyOneTheNumber) {
    EXPECT_EQ(Format(5, u"abc"), u"abc");
    EXPECT_EQ(Format(0.5, u""), u"0.5");
    EXPECT_EQ(Format(0.5f, u""), u"0.5");
    EXPECT_EQ(Format(-3, u""), u"-3");
}

TEST(NumberPicture, RefusesWhatIsNoNumber) {
    EXPECT_THROW(Format(std::numeric_limits<double>::infinity(), u"0"), RuntimeFailure);
}

TEST(NumberPicture, AgreesWithWholeNumberArithmeticOnRandomDecimals) {
    std::mt19937_64 random(34);
    const std::string zeros = "000000";
    for (int run = 0; run < 5000; ++run) {
        const int places = static_cast<int>(random() % 6) + 1;
        const int decimals = static_cast<int>(random() % static_cast<unsigned>(places)) + 1;
        std::int64_t scale = 1;
        std::int64_t unit = 1;
        for (int i = 0; i < places; ++i) {
            scale *= 10;
            unit *= i < decimals ? 10 : 1;
        }
        const auto numerator = static_cast<std::int64_t>(random() % 100000000000);
        const bool isNegative = random() % 2 == 0;
        const std::int64_t drop = scale / unit;
        const std::int64_t kept = (numerator + drop / 2) / drop; // a half goes away from zero
        const std::string fraction = std::to_string(kept % unit + unit).substr(1);
        const std::string expected = (isNegative && kept != 0 ? "-<" : "<") + std::to_string(kept / unit) + "." +
                                     fraction + ">";
        const std::string picture = "<##0." + zeros.substr(0, static_cast<std::size_t>(decimals)) + ">";
        const double value = static_cast<double>(isNegative ? -numerator : numerator) / static_cast<double>(scale);
        ASSERT_EQ(Format(value, Text(picture.begin(), picture.end())), Text(expected.begin(), expected.end()))
            << numerator << "/" << scale;
    }
}
