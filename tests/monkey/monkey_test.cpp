// Random keys on random tables: nothing is ever lost, whatever is pressed.
//
// The keys are shared out among several walks, from a seed and those that follow it; as many of them as the machine has
// processors go side by side. ROMIKA_MONKEY_SEED chooses another first seed, ROMIKA_MONKEY_STEPS how many keys all
// walks press together, ROMIKA_LONG the long run, with one walk for each processor. ROMIKA_MONKEY_REPLAY walks the
// trace in a file again. What a walk finds is told with the shortest list of keys that shows it.

#include "support/test_world.h"
#include "tests/monkey/walk_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <future>
#include <iterator>
#include <thread>
#include <vector>

namespace {

constexpr int secondsToShorten = 120;
constexpr long shortRun = 30000; // keys
constexpr long longRun = 5000000;
constexpr long shortWalks = 4;

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

long processors() {
    return std::clamp<long>(std::thread::hardware_concurrency(), 1, 16);
}

/// Runs `work(0)` to `work(count - 1)`, as many at a time as there are processors.
void sideBySide(long count, const std::function<void(long)>& work) {
    std::atomic<long> next{0};
    std::vector<std::future<void>> workers;
    for (long i = 0; i < std::min(count, processors()); ++i) {
        workers.push_back(std::async(std::launch::async, [&] {
            for (long mine = next++; mine < count; mine = next++) {
                work(mine);
            }
        }));
    }
    for (auto& worker : workers) {
        worker.get();
    }
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
    const long keys = std::stol(setting("ROMIKA_MONKEY_STEPS", std::to_string(isLongRun() ? longRun : shortRun)));
    const long walks = isLongRun() ? processors() : shortWalks;
    const auto traceFile = [&](long walk) { return folder.path() + "/trace" + std::to_string(walk); };
    std::vector<WalkResult> results(static_cast<std::size_t>(walks));
    sideBySide(walks, [&](long walk) {
        const int patience = 120 + static_cast<int>(keys / walks / 50);
        results[static_cast<std::size_t>(walk)] = walkInProcess(
            {"--walk", std::to_string(firstSeed + walk), std::to_string(keys / walks), traceFile(walk)}, patience);
    });
    for (long walk = 0; walk < walks; ++walk) {
        expectNothingFound(results[static_cast<std::size_t>(walk)], traceFile(walk), scratchFile);
    }
}

TEST(Monkey, WalksATraceAgainToTheSameFiles) {
    constexpr std::size_t keys = 1200; // on one table, since a trace is of one
    constexpr int patience = 300;      // seconds
    const TemporaryFolder folder;
    const std::string traceFile = folder.path() + "/trace";
    const WalkResult walk = walkInProcess({"--walk", "3", std::to_string(keys), traceFile}, patience);
    ASSERT_EQ(walk.found, "");
    ASSERT_NE(walk.folder, "");
    Trace trace = traceOf(contentsOf(traceFile));
    ASSERT_EQ(trace.keys.size(), keys);

    const WalkResult again = walkInProcess({"--again", traceFile}, patience);
    EXPECT_EQ(again.found, "");
    EXPECT_EQ(again.folder, walk.folder);

    trace.keys.clear();
    std::ofstream(traceFile, std::ios::binary) << textOf(trace);
    const WalkResult untouched = walkInProcess({"--again", traceFile}, patience);
    EXPECT_EQ(untouched.found, "");
    EXPECT_NE(untouched.folder, walk.folder) << "the keys have changed no file at all";
}
