#include "platform/posix/system_clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

/// A time zone for one test.
class TimeZone {
public:
    explicit TimeZone(const char* zone) {
        if (const char* before = std::getenv("TZ")) {
            before_ = before;
        }
        setenv("TZ", zone, 1);
        tzset();
    }
    ~TimeZone() {
        if (before_) {
            setenv("TZ", before_->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;

private:
    std::optional<std::string> before_;
};

constexpr std::time_t day = 86400;

} // namespace

TEST(SystemClock, TheDayBeginsAtLocalMidnight) {
    const TimeZone zone("JST-9");
    EXPECT_EQ(secondsOfDay({0, 0}), 9 * 3600);
    EXPECT_EQ(secondsOfDay({15 * 3600, 0}), 0);
    EXPECT_EQ(secondsOfDay({20000 * day + 3 * 3600 + 4 * 60 + 5, 250000000}), 12 * 3600 + 4 * 60 + 5.25);
}

TEST(SystemClock, TheLastMomentOfTheDayIsBelow86400) {
    const TimeZone zone("UTC0");
    EXPECT_LT(secondsOfDay({day - 1, 999999999}), 86400);
    EXPECT_GT(secondsOfDay({day - 1, 999999999}), 86399.99);
}

TEST(SystemClock, TellsTheTimeOfTheMachine) {
    const TimeZone zone("UTC0");
    SystemClock clock;
    const std::time_t before = std::time(nullptr);
    const double told = clock.secondsSinceMidnight();
    const std::time_t after = std::time(nullptr);
    const double sinceBefore = std::fmod(told - static_cast<double>(before % day) + day, day);
    EXPECT_LE(sinceBefore, static_cast<double>(after - before) + 2.0);
}

TEST(SystemClock, AShortRestLastsAboutAMillisecond) {
    SystemClock clock;
    double shortest = 1;
    for (int i = 0; i < 20; ++i) {
        const auto start = std::chrono::steady_clock::now();
        clock.shortSleep();
        shortest = std::min(shortest, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    EXPECT_GE(shortest, 0.001);
    EXPECT_LT(shortest, 0.02);
}
