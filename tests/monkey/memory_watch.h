#pragma once
// Looks whether the process holds more and more memory, table after table.

#include <algorithm>
#include <fstream>
#include <malloc.h>
#include <optional>
#include <string>
#include <unistd.h>

/// Memory that the process holds, in bytes.
inline long residentMemory() {
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

/// Tells of memory that grows from table to table.
class MemoryWatch {
public:
    /// Called after each table. What is wrong, or nothing.
    std::optional<std::string> look() {
        constexpr int tablesToWarmUp = 8;
#ifdef __SANITIZE_ADDRESS__
        constexpr long allowed = 8L << 30; // the sanitizer keeps freed memory back, and notes on each place that asked
#else
        constexpr long allowed = 48L << 20;
#endif
        malloc_trim(0); // what the heap keeps back for later is no growth
        const long now = residentMemory();
        if (++tables_ <= tablesToWarmUp) {
            first_ = std::max(first_, now);
        } else if (now > first_ + allowed) {
            return "memory: " + std::to_string(now >> 20) + " MB after " + std::to_string(tables_) + " tables, " +
                   std::to_string(first_ >> 20) + " MB at first";
        }
        return std::nullopt;
    }

private:
    int tables_ = 0;
    long first_ = 0;
};
