#pragma once
// The clock of the program: the only source of time and the only way to let time pass.

/// Time of day and a short rest.
class Clock {
public:
    virtual ~Clock() = default;
    /// Seconds since local midnight with a fraction, 0 to below 86400. Falls back to 0 at midnight.
    virtual double secondsSinceMidnight() = 0;
    /// Rests for about a millisecond without handling any event.
    virtual void shortSleep() = 0;
};
