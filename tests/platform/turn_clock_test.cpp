#include "platform/posix/turn_clock.h"

#include <gtest/gtest.h>

#include <chrono>

TEST(TurnClock, IsDueWhenItIsAskedForTheFirstTime) { EXPECT_TRUE(TurnClock().isDue()); }

TEST(TurnClock, IsDueAgainSomeMillisecondsAfterATurn) {
    using Clock = std::chrono::steady_clock;
    TurnClock clock;
    clock.restart();
    const auto start = Clock::now();
    while (!clock.isDue() && Clock::now() - start < std::chrono::seconds(5)) {
    }
    const auto passed = Clock::now() - start;
    EXPECT_TRUE(clock.isDue());
    EXPECT_GE(passed, std::chrono::milliseconds(7)) << "its own time is up to two ticks old";
    EXPECT_LT(passed, std::chrono::seconds(5));
}
