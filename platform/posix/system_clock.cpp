#include "platform/posix/system_clock.h"

#include <algorithm>
#include <chrono>
#include <thread>

double secondsOfDay(const std::timespec& moment) {
    std::tm local{};
    localtime_r(&moment.tv_sec, &local);
    // A leap second would make the day longer than its 86400 seconds.
    const int second = std::min(local.tm_sec, 59);
    return (local.tm_hour * 60 + local.tm_min) * 60 + second + static_cast<double>(moment.tv_nsec) / 1e9;
}

double SystemClock::secondsSinceMidnight() {
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    return secondsOfDay(now);
}

void SystemClock::shortSleep() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }
