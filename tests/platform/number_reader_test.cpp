#include "platform/number_reader.h"

#include "platform/failure.h"
#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace {

template <typename Action> void expectOverflow(Action action) {
    try {
        action();
        FAIL() << "no failure";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::overflow);
    }
}

Text wide(const std::string& ascii) { return Text(ascii.begin(), ascii.end()); }

} // namespace

TEST(Val, ReadsTheNumberAtTheStart) {
    EXPECT_EQ(Val(u"12"), 12);
    EXPECT_EQ(Val(u"12abc"), 12);
    EXPECT_EQ(Val(u"-3.5x"), -3.5);
    EXPECT_EQ(Val(u"+7"), 7);
    EXPECT_EQ(Val(u".5"), 0.5);
    EXPECT_EQ(Val(u"5."), 5);
    EXPECT_EQ(Val(u"0012"), 12);
    EXPECT_EQ(Val(u"0.1"), 0.1);
}

TEST(Val, SkipsLeadingBlanksOnly) {
    EXPECT_EQ(Val(u"   12"), 12);
    EXPECT_EQ(Val(u"1 2"), 1);
    EXPECT_EQ(Val(u"- 2"), 0);
    EXPECT_EQ(Val(u"1 E2"), 1);
    EXPECT_EQ(Val(u"\u300012"), 0);
    EXPECT_EQ(Val(u"\t12"), 0);
}

TEST(Val, TakesOnePoint) {
    EXPECT_EQ(Val(u"1.2.3"), 1.2);
    EXPECT_EQ(Val(u"1..2"), 1);
    EXPECT_EQ(Val(u"..5"), 0);
    EXPECT_EQ(Val(u"1,234"), 1);
}

TEST(Val, TakesAnExponentWithEitherLetterInEitherCase) {
    for (const TextView text : {u"1.5E2", u"1.5e2", u"1.5D2", u"1.5d2", u"1.5E+2", u"1.5d+2"}) {
        EXPECT_EQ(Val(text), 150);
    }
    EXPECT_EQ(Val(u"25E-1"), 2.5);
    EXPECT_EQ(Val(u".5E1"), 5);
}

TEST(Val, LeavesAnExponentLetterWithoutDigits) {
    EXPECT_EQ(Val(u"2E"), 2);
    EXPECT_EQ(Val(u"2E+"), 2);
    EXPECT_EQ(Val(u"2Ex"), 2);
    EXPECT_EQ(Val(u"2E 3"), 2);
    EXPECT_EQ(Val(u"2E--3"), 2);
    EXPECT_EQ(Val(u"2EE3"), 2);
    EXPECT_EQ(Val(u"2E3.5"), 2000);
}

TEST(Val, IsZeroIfNoDigitCame) {
    for (const TextView text : {u"", u"   ", u"-", u"+", u".", u"-.", u"abc", u"E5", u".E5", u"１２", u"inf", u"nan"}) {
        EXPECT_EQ(Val(text), 0);
    }
    EXPECT_FALSE(std::signbit(Val(u"-0")));
    EXPECT_FALSE(std::signbit(Val(u"-x")));
    EXPECT_EQ(Val(u"0E999999"), 0);
    EXPECT_EQ(Val(u"0x10"), 0);
}

TEST(Val, OverflowsOnlyAboveTheLargestDouble) {
    expectOverflow([] { Val(u"1E999"); });
    expectOverflow([] { Val(u"-1D+309"); });
    expectOverflow([] { Val(u"1E99999999999999999999"); });
    expectOverflow([] { Val(Text(400, u'9')); });
    expectOverflow([] { Val(Text(400, u'9') + u"E-5"); });
    EXPECT_EQ(Val(u"1.7976931348623157E308"), std::numeric_limits<double>::max());
    EXPECT_EQ(Val(u"1E-999"), 0);
    EXPECT_EQ(Val(u"1E-99999999999999999999"), 0);
    EXPECT_EQ(Val(u"0." + Text(400, u'0') + u"1"), 0);
    EXPECT_EQ(Val(u"0." + Text(400, u'0') + u"1E+401"), 1);
    EXPECT_EQ(Val(Text(400, u'9') + u"E-400"), 1);
    expectOverflow([] { Val(u"0." + Text(400, u'0') + u"1E+720"); });
    EXPECT_GT(Val(u"1E-310"), 0);
}

TEST(Val, AgreesWithTheCLibraryOnRandomNumbers) {
    std::mt19937_64 random(6);
    for (int run = 0; run < 5000; ++run) {
        char room[64];
        const double mantissa = static_cast<double>(static_cast<std::int64_t>(random())) / 1e9;
        std::snprintf(room, sizeof room, "%.*fE%d", static_cast<int>(random() % 12), mantissa,
                      static_cast<int>(random() % 500) - 250);
        ASSERT_EQ(Val(wide(room)), std::strtod(room, nullptr)) << room;
    }
}

TEST(Val, ReadsBackWhatStrWrote) {
    std::mt19937_64 random(7);
    for (int run = 0; run < 5000; ++run) {
        const auto numerator = static_cast<std::int64_t>(random() % 2000000000000000ULL) - 1000000000000000LL;
        const double value = static_cast<double>(numerator) / 1000;
        const double back = Val(Str(value));
        ASSERT_NEAR(back, value, std::fabs(value) * 1e-14);
        ASSERT_EQ(Str(back), Str(value));
    }
}

TEST(RoundTo, TakesAHalfToTheEvenNeighbour) {
    EXPECT_EQ(roundTo16(0.5), 0);
    EXPECT_EQ(roundTo16(1.5), 2);
    EXPECT_EQ(roundTo16(2.5), 2);
    EXPECT_EQ(roundTo16(-0.5), 0);
    EXPECT_EQ(roundTo16(-1.5), -2);
    EXPECT_EQ(roundTo16(-2.5), -2);
    EXPECT_EQ(roundTo16(2.5000001), 3);
    EXPECT_EQ(roundTo32(100000.5), 100000);
    EXPECT_EQ(roundTo32(100001.5), 100002);
    for (int i = -40000; i <= 40000; ++i) {
        const int even = i % 2 == 0 ? i : i + 1;
        ASSERT_EQ(roundTo32(i + 0.5), even);
        ASSERT_EQ(roundTo32(i + 0.25), i);
    }
}

TEST(RoundTo, OverflowsOutsideOfItsType) {
    EXPECT_EQ(roundTo16(32767.49), 32767);
    EXPECT_EQ(roundTo16(-32768.5), -32768);
    expectOverflow([] { roundTo16(32767.5); });
    expectOverflow([] { roundTo16(-32768.6); });
    EXPECT_EQ(roundTo32(2147483647.4), 2147483647);
    EXPECT_EQ(roundTo32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    expectOverflow([] { roundTo32(2147483647.5); });
    expectOverflow([] { roundTo32(-2147483649); });
    expectOverflow([] { roundTo32(1e300); });
    expectOverflow([] { roundTo16(std::numeric_limits<double>::quiet_NaN()); });
    expectOverflow([] { roundTo16(std::numeric_limits<double>::infinity()); });
}

TEST(RoundTo, SinglePrecisionOverflowsToo) {
    EXPECT_EQ(roundToSingle(16777217), 16777216.0F);
    EXPECT_EQ(roundToSingle(-0.1), -0.1F);
    EXPECT_EQ(roundToSingle(std::numeric_limits<float>::max()), std::numeric_limits<float>::max());
    expectOverflow([] { roundToSingle(1e39); });
    expectOverflow([] { roundToSingle(-1e39); });
    expectOverflow([] { roundToSingle(std::numeric_limits<double>::quiet_NaN()); });
}
