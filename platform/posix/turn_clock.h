#pragma once
// Says when a loop over many records ought to give the event loop a turn. Asked once for each record, so it asks the
// system for the time of its last tick, which is some milliseconds old and costs next to nothing.

#include <cstdint>
#include <ctime>

/// A clock that is due every 15 milliseconds, and when it is asked for the first time: often enough that a stop button is
/// obeyed at once, seldom enough that a loop over a million records doesn't notice.
class TurnClock {
public:
    bool isDue() const { return last_ == never || now() - last_ >= period; }
    /// The turn has been given.
    void restart() { last_ = now(); }

private:
    static constexpr std::int64_t period = 15'000'000;
    static constexpr std::int64_t never = -1;

    static std::int64_t now() {
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    }

    std::int64_t last_ = never;
};
