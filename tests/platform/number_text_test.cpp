#include "platform/number_text.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NumberText, PrintedNumbersStandBehindWhatALineHolds) {
    for (const std::int64_t value : {std::int64_t{0}, std::int64_t{7}, std::int64_t{-7}, std::int64_t{1000000},
                                     std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        Bytes line = "a";
        appendPrintedNumber(line, value);
        EXPECT_EQ(line, "a" + std::string(value < 0 ? "" : " ") + std::to_string(value) + " ");
        EXPECT_EQ(Text(line.begin() + 1, line.end()), printedNumber(value));
    }
}

TEST(PlainNumber, HasNoBlanksAndAZeroBeforeThePoint) {
    EXPECT_EQ(plainNumber(12), u"12");
    EXPECT_EQ(plainNumber(0), u"0");
    EXPECT_EQ(plainNumber(-7), u"-7");
    EXPECT_EQ(plainNumber(0.2), u"0.2");
    EXPECT_EQ(plainNumber(0.2f), u"0.2");
    EXPECT_EQ(plainNumber(-0.25), u"-0.25");
    EXPECT_EQ(plainNumber(12.5), u"12.5");
    EXPECT_EQ(plainNumber(3.0), u"3");
    EXPECT_EQ(plainNumber(-0.0), u"0");
}

TEST(Str, HasABlankOrAMinusAndNoZeroBeforeThePoint) {
    EXPECT_EQ(Str(12), u" 12");
    EXPECT_EQ(Str(-12), u"-12");
    EXPECT_EQ(Str(0), u" 0");
    EXPECT_EQ(Str(0.0), u" 0");
    EXPECT_EQ(Str(-0.0), u" 0");
    EXPECT_EQ(Str(0.5), u" .5");
    EXPECT_EQ(Str(-0.5), u"-.5");
    EXPECT_EQ(Str(-0.25f), u"-.25");
    EXPECT_EQ(Str(100.0), u" 100");
}

TEST(Str, ASingleHasSevenDigitsAndADoubleFifteen) {
    EXPECT_EQ(Str(1.0f / 3.0f), u" .3333333");
    EXPECT_EQ(Str(1.0 / 3.0), u" .333333333333333");
    EXPECT_EQ(Str(2.0 / 3.0), u" .666666666666667");
    EXPECT_EQ(Str(3.84f), u" 3.84");
    EXPECT_EQ(Str(4.8828125f), u" 4.882813");
    EXPECT_EQ(Str(0.1 + 0.2), u" .3");
    EXPECT_EQ(Str(123456789.123456789), u" 123456789.123457");
}

TEST(Str, TurnsToTheExponentFormWhereTheSizeWantsIt) {
    EXPECT_EQ(Str(9999999.0f), u" 9999999");
    EXPECT_EQ(Str(10000000.0f), u" 1E+07");
    EXPECT_EQ(Str(12345678.0f), u" 1.234568E+07");
    EXPECT_EQ(Str(-1.5e20f), u"-1.5E+20");
    EXPECT_EQ(Str(999999999999999.0), u" 999999999999999");
    EXPECT_EQ(Str(1e15), u" 1E+15");
    EXPECT_EQ(Str(999999999999999.5), u" 1E+15");
    EXPECT_EQ(Str(-2.5e100), u"-2.5E+100");
    EXPECT_EQ(plainNumber(1e15), u"1E+15");
}

TEST(Str, StaysPlainDownToTheFifteenthDecimal) {
    EXPECT_EQ(Str(5.0f / 60.0f), u" .08333334");
    EXPECT_EQ(Str(1e-15), u" .000000000000001");
    EXPECT_EQ(Str(1.5e-15), u" .0000000000000015");
    EXPECT_EQ(Str(1.5e-5f), u" .000015");
    EXPECT_EQ(Str(9.9e-16), u" 9.9E-16");
    EXPECT_EQ(Str(-1e-16), u"-1E-16");
    EXPECT_EQ(plainNumber(1e-15), u"0.000000000000001");
    EXPECT_EQ(plainNumber(1.5e-100), u"1.5E-100");
}

TEST(Str, AWholeNumberNeverTurnsToTheExponentForm) {
    EXPECT_EQ(Str(10000000), u" 10000000");
    EXPECT_EQ(Str(std::numeric_limits<std::int64_t>::max()), u" 9223372036854775807");
    EXPECT_EQ(Str(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(TrimmedStr, IsStrWithoutItsBlank) {
    EXPECT_EQ(trimmedStr(12), u"12");
    EXPECT_EQ(trimmedStr(0.5), u".5");
    EXPECT_EQ(trimmedStr(-0.5f), u"-.5");
    EXPECT_EQ(trimmedStr(10000000.0f), u"1E+07");
}

TEST(PrintedNumber, HasOneBlankBehind) {
    EXPECT_EQ(printedNumber(25), u" 25 ");
    EXPECT_EQ(printedNumber(-25), u"-25 ");
    EXPECT_EQ(printedNumber(0.5), u" .5 ");
    EXPECT_EQ(printedNumber(-0.25f), u"-.25 ");
}

TEST(NumberText, TakesEveryIntegerTypeWithoutAmbiguity) {
    EXPECT_EQ(plainNumber(static_cast<std::int16_t>(5)), u"5");
    EXPECT_EQ(plainNumber(static_cast<std::uint8_t>(200)), u"200");
    EXPECT_EQ(Str(5L), u" 5");
    EXPECT_EQ(Str(5LL), u" 5");
    EXPECT_EQ(Str(5u), u" 5");
    EXPECT_EQ(trimmedStr(std::size_t{5}), u"5");
    EXPECT_EQ(printedNumber(std::int32_t{-5}), u"-5 ");
    EXPECT_FALSE(WholeNumber<bool>);
    EXPECT_FALSE(WholeNumber<char16_t>);
}

TEST(NumberText, RefusesWhatIsNoNumber) {
    EXPECT_THROW(Str(std::numeric_limits<double>::infinity()), RuntimeFailure);
    EXPECT_THROW(plainNumber(std::numeric_limits<double>::quiet_NaN()), RuntimeFailure);
}

TEST(FixedDigits, AreTheLastOnesWithZerosInFront) {
    EXPECT_EQ(fixedDigits(1000 + 12, 4), u"1012");
    EXPECT_EQ(fixedDigits(2000, 4), u"2000");
    EXPECT_EQ(fixedDigits(12345, 4), u"2345");
    EXPECT_EQ(fixedDigits(5, 2), u"05");
    EXPECT_EQ(fixedDigits(0, 2), u"00");
    EXPECT_EQ(fixedDigits(100, 2), u"00");
}

TEST(PercentText, HasTheLeadingBlankOfTheNumber) {
    EXPECT_EQ(percentText(30), u" 30%完了");
    EXPECT_EQ(percentText(0), u" 0%完了");
}

TEST(PadRight, PutsTheBlanksToTheLeft) {
    EXPECT_EQ(padRight(u"12", 5), u"   12");
    EXPECT_EQ(padRight(u"12345", 5), u"12345");
    EXPECT_EQ(padRight(u"123456", 5), u"123456");
    EXPECT_EQ(padRight(u"", 2), u"  ");
}

TEST(PrintZone, LeadsToTheNextMultipleOfFourteenColumns) {
    EXPECT_EQ(toPrintZone("11-15-2026") + "17:32:07", "11-15-2026    17:32:07");
    EXPECT_EQ(toPrintZone("1234567890123"), "1234567890123 ");
    EXPECT_EQ(toPrintZone(Bytes(15, 'x')).size(), 28u);
}

TEST(PrintZone, MovesAWholeZoneOnFromTheEdge) {
    EXPECT_EQ(toPrintZone("12345678901234"), "12345678901234              ");
    EXPECT_EQ(toPrintZone("").size(), 14u);
    EXPECT_EQ(blanksToPrintZone(28), 14u);
    EXPECT_EQ(blanksToPrintZone(27), 1u);
}

TEST(PrintZone, CountsBytes) { EXPECT_EQ(toPrintZone("\x82\xA0\x82\xA2").size(), 14u); }
