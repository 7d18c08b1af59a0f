#pragma once
// The clock of the machine behind the interface Clock. main builds one; tests use a double. Times are those of
// the machine's time zone.

#include "platform/clock.h"

#include <ctime>

/// Seconds since local midnight of a moment, with its fraction, 0 to below 86400.
double secondsOfDay(const std::timespec& moment);

/// The real clock.
class SystemClock : public Clock {
public:
    double secondsSinceMidnight() override;
    void shortSleep() override;
};
