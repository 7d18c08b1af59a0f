#include "platform/failure.h"
#include "platform/waiting.h"
#include "support/doubles.h"

#include <gtest/gtest.h>

namespace {

/// A clock that passes midnight after some rests.
class MidnightClock : public Clock {
public:
    double secondsSinceMidnight() override { return now; }
    void shortSleep() override { now = now > 86399.99 ? 0.5 : now + 0.01; }
    double now = 86399.95;
};

} // namespace

TEST(Waiting, LastsAtLeastAsLongAsAsked) {
    FakeClock clock;
    waitOnClock(clock, 1.8);
    EXPECT_GE(clock.slept, 1.8);
    EXPECT_LT(clock.slept, 1.81);
}

TEST(Waiting, AClockThatRunsBackwardsIsAnOverflow) {
    MidnightClock clock;
    try {
        waitOnClock(clock, 5);
        FAIL() << "the wait must not go on over midnight";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.kind, FailureKind::overflow);
    }
}
