// Prints which faults each writing operation was put through and what came of them, as the table of docs/safety.md has
// it. usage: safety_table [--long]   Ends with status 1 if a promise was broken.

#include "safety/fault_runs.h"

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int count, char** words) {
    if (count == 2 && std::string(words[1]) == "--long") {
        setenv("ROMIKA_LONG", "1", 1);
    }
    std::string head = "| operation |";
    std::string line = "|---|";
    for (const FaultWay way : allFaultWays) {
        head += " " + nameOf(way) + " |";
        line += "---:|";
    }
    std::printf("%s result |\n%s---|\n", head.c_str(), line.c_str());
    int broken = 0;
    for (const WritingOperation& operation : writingOperations()) {
        std::string row = "| " + operation.name + " |";
        std::size_t problems = 0;
        for (const FaultWay way : allFaultWays) {
            const FaultReport report = runWithFaults(operation, way, faultScope());
            row += " " + std::to_string(report.points) + " |";
            problems += report.problems.size();
            for (const auto& problem : report.problems) {
                std::fprintf(stderr, "%s\n", problem.c_str());
            }
        }
        const std::string result = problems == 0 ? "kept" : "broken " + std::to_string(problems) + " times";
        std::printf("%s %s |\n", row.c_str(), result.c_str());
        std::fflush(stdout);
        broken += problems == 0 ? 0 : 1;
    }
    return broken == 0 ? 0 : 1;
}
