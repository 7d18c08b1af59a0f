#pragma once
// The clock by which the reading program measures its patience with engines and other programs. Included by everything
// that waits for something. It never names the time of day.

#include <chrono>

using TimePoint = std::chrono::steady_clock::time_point;
