// Random keys on random tables: nothing is ever lost, whatever is pressed.
//
// ROMIKA_MONKEY_SEED and ROMIKA_MONKEY_STEPS choose another walk, ROMIKA_MONKEY_REPLAY walks the trace in a file again,
// ROMIKA_LONG asks for the long walk: several ones side by side, as many as the machine has processors. What a walk finds
// is told with the shortest list of keys that shows it.

#include "support/test_world.h"
#include "tests/monkey/walk_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <future>
#include <iterator>
#include <thread>
#include <vector>

namespace {

constexpr int secondsToShorten = 120;
constexpr long shortWalk = 30000;
constexpr long longWalk = 5000000;

std::string setting(const char* name, const std::string& otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

bool isLongRun() {
    return !setting("ROMIKA_LONG", "").empty();
}

std::string contentsOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void expectNothingFound(const WalkResult& result, const std::string& traceFile, const std::string& scratchFile) {
    if (result.found.empty()) {
        return;
    }
    const Trace trace = traceOf(contentsOf(traceFile));
    const Trace shortest = shortestTrace(trace, result.found, scratchFile, secondsToShorten);
    ADD_FAILURE() << result.found << "\n"
                  << textOf(shortest) << "(" << shortest.keys.size() << " of " << trace.keys.size()
                  << " keys; the end of what the walk printed:)\n"
                  << result.output.substr(result.output.size() - std::min<std::size_t>(result.output.size(), 600));
}

} // namespace

TEST(Monkey, LosesNothingByRandomKeys) {
    const TemporaryFolder folder;
    const std::string scratchFile = folder.path() + "/shorter";
    const std::string replay = setting("ROMIKA_MONKEY_REPLAY", "");
    if (!replay.empty()) {
        expectNothingFound(walkInProcess({"--again", replay}, 600), replay, scratchFile);
        return;
    }
    const long firstSeed = std::stol(setting("ROMIKA_MONKEY_SEED", "1"));
    const long steps = std::stol(setting("ROMIKA_MONKEY_STEPS", std::to_string(isLongRun() ? longWalk : shortWalk)));
    const long walks = isLongRun() ? std::clamp(std::thread::hardware_concurrency(), 1U, 16U) : 1;
    const auto traceFile = [&](long walk) { return folder.path() + "/trace" + std::to_string(walk); };
    std::vector<std::future<WalkResult>> results;
    for (long walk = 0; walk < walks; ++walk) {
        const std::vector<std::string> arguments = {"--walk", std::to_string(firstSeed + walk),
                                                    std::to_string(steps / walks), traceFile(walk)};
        const int patience = 120 + static_cast<int>(steps / walks / 50);
        results.push_back(std::async(std::launch::async, [=] { return walkInProcess(arguments, patience); }));
    }
    for (long walk = 0; walk < walks; ++walk) {
        expectNothingFound(results[static_cast<std::size_t>(walk)].get(), traceFile(walk), scratchFile);
    }
}
