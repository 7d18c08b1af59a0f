#include "platform/decimal_digits.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace {

/// The number as sign, "0." digits and exponent, for comparing at one glance.
std::string shown(const DecimalDigits& number) {
    return (number.isNegative ? "-." : ".") + number.digits + "@" + std::to_string(number.point);
}

/// Independent road: the C library writes every digit, and the rounding adds a half to that decimal string by hand.
std::string expectedDigits(double value, int significant) {
    char room[1200];
    std::snprintf(room, sizeof room, "%.800e", std::fabs(value));
    std::string text(room);
    const auto mark = text.find('e');
    int point = std::stoi(text.substr(mark + 1)) + 1;
    std::string digits = "0" + text.substr(0, 1) + text.substr(2, mark - 2); // one place for the carry
    int carry = 5;
    for (int i = significant + 1; i >= 0 && carry > 0; --i) {
        const int sum = digits[static_cast<std::size_t>(i)] - '0' + carry;
        digits[static_cast<std::size_t>(i)] = static_cast<char>('0' + sum % 10);
        carry = sum / 10;
    }
    digits.resize(static_cast<std::size_t>(significant) + 1);
    if (digits[0] == '0') {
        digits.erase(0, 1);
    } else {
        ++point;
    }
    while (!digits.empty() && digits.back() == '0') {
        digits.pop_back();
    }
    return (std::signbit(value) ? "-." : ".") + digits + "@" + std::to_string(point);
}

} // namespace

TEST(DecimalDigits, ATieGoesAwayFromZeroOnTheExactValue) {
    EXPECT_EQ(shown(decimalDigits(4.8828125f)), ".4882813@1");
    EXPECT_EQ(shown(decimalDigits(-4.8828125f)), "-.4882813@1");
    EXPECT_EQ(shown(decimalDigits(4.8828125)), ".48828125@1");
    EXPECT_EQ(shown(decimalDigits(1000000000000000.5)), ".1@16"); // 16th digit 0, 17th 5
    EXPECT_EQ(shown(decimalDigits(100000000000000.25)), ".1@15");
    EXPECT_EQ(shown(decimalDigits(100000000000000.5)), ".100000000000001@15");
    EXPECT_EQ(shown(decimalDigits(16777217.0f)), ".1677722@8");
}

TEST(DecimalDigits, ZeroHasNoDigitsAndNoSign) {
    EXPECT_EQ(shown(decimalDigits(0.0)), ".@0");
    EXPECT_EQ(shown(decimalDigits(-0.0)), ".@0");
    EXPECT_EQ(shown(decimalDigits(-0.0f)), ".@0");
    EXPECT_EQ(shown(decimalDigits(std::int64_t{0})), ".@0");
}

TEST(DecimalDigits, KeepsEveryDigitOfAWholeNumber) {
    EXPECT_EQ(shown(decimalDigits(std::int64_t{-1200})), "-.12@4");
    EXPECT_EQ(shown(decimalDigits(std::numeric_limits<std::int64_t>::max())), ".9223372036854775807@19");
    EXPECT_EQ(shown(decimalDigits(std::numeric_limits<std::int64_t>::min())), "-.9223372036854775808@19");
}

TEST(DecimalDigits, RefusesWhatIsNoNumber) {
    try {
        decimalDigits(std::numeric_limits<double>::infinity());
        FAIL() << "no failure";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::overflow);
    }
    try {
        decimalDigits(std::numeric_limits<float>::quiet_NaN());
        FAIL() << "no failure";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::impossible);
    }
}

TEST(DecimalDigits, AgreesWithTheLongRoadOnRandomNumbers) {
    std::mt19937_64 random(15);
    for (int run = 0; run < 5000; ++run) {
        const auto bits = random();
        if (const auto value = std::bit_cast<double>(bits); std::isfinite(value) && value != 0) {
            ASSERT_EQ(shown(decimalDigits(value)), expectedDigits(value, 15)) << value;
        }
        if (const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
            std::isfinite(value) && value != 0) {
            ASSERT_EQ(shown(decimalDigits(value)), expectedDigits(value, 7)) << value;
        }
        const double everyday = static_cast<double>(static_cast<std::int64_t>(bits) / 1000000000) / 1024;
        if (everyday != 0) {
            ASSERT_EQ(shown(decimalDigits(everyday)), expectedDigits(everyday, 15)) << everyday;
            ASSERT_EQ(shown(decimalDigits(static_cast<float>(everyday))),
                      expectedDigits(static_cast<float>(everyday), 7));
        }
    }
    for (const double edge : {std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min(),
                              std::numeric_limits<double>::min(), 999999999999999.5, 0.1, 1e22, 1e23}) {
        EXPECT_EQ(shown(decimalDigits(edge)), expectedDigits(edge, 15)) << edge;
    }
}

TEST(DecimalDigitsRounded, CarriesThroughNinesAndMayKeepNothing) {
    EXPECT_EQ(shown(rounded({false, "9995", 2}, 3)), ".1@3");
    EXPECT_EQ(shown(rounded({true, "12345", 3}, 4)), "-.1235@3");
    EXPECT_EQ(shown(rounded({true, "12345", 3}, 5)), "-.12345@3");
    EXPECT_EQ(shown(rounded({false, "5", 0}, 0)), ".1@1");
    EXPECT_EQ(shown(rounded({true, "49", 0}, 0)), ".@0");
    EXPECT_EQ(shown(rounded({true, "99", 0}, -1)), ".@0");
}

TEST(DecimalDigits, SplitsAtThePoint) {
    const DecimalDigits middle{false, "12345", 2};
    EXPECT_EQ(middle.whole(), "12");
    EXPECT_EQ(middle.fraction(), "345");
    const DecimalDigits large{false, "12", 5};
    EXPECT_EQ(large.whole(), "12000");
    EXPECT_EQ(large.fraction(), "");
    const DecimalDigits small{false, "12", -2};
    EXPECT_EQ(small.whole(), "");
    EXPECT_EQ(small.fraction(), "0012");
}
