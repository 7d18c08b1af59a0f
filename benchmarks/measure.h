#pragma once
// Small helpers of the measurements: times of single runs, their middle, and a line of the result table.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

/// Ends the program: what is to be measured could not be done. Says what failed, and why by the system's last error.
[[noreturn]] inline void giveUp(const char* what) {
    std::perror(what);
    std::exit(2);
}

/// Microseconds that one call of `work` takes.
template <typename Work> double microseconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

/// The value below which `share` (0 to 1) of the samples lie.
inline double quantile(std::vector<double> samples, double share) {
    std::sort(samples.begin(), samples.end());
    return samples[std::min(samples.size() - 1, static_cast<std::size_t>(share * static_cast<double>(samples.size())))];
}

/// The middle of the samples.
inline double median(const std::vector<double>& samples) { return quantile(samples, 0.5); }

/// One line: what was measured, the figure, the limit it must keep, and whether it does. Returns true if it does.
inline bool report(const std::string& what, double figure, const char* unit, double limit) {
    const bool kept = figure <= limit;
    std::printf("%-74s %10.2f %-4s (limit %.2f) %s\n", what.c_str(), figure, unit, limit, kept ? "ok" : "MISSED");
    std::fflush(stdout);
    return kept;
}
