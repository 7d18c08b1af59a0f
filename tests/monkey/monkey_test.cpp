// Random keys on random tables: nothing is ever lost, whatever is pressed.
//
// ROMIKA_MONKEY_SEED and ROMIKA_MONKEY_STEPS choose another walk, ROMIKA_MONKEY_REPLAY walks the trace in a file again,
// ROMIKA_LONG asks for the long walk. What a walk finds is told with the shortest list of keys that shows it.

#include "support/test_world.h"
#include "tests/monkey/walk_process.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

constexpr int secondsToShorten = 120;
// The sanitizers look at every step of their own, and take their time for it.
#ifdef __SANITIZE_ADDRESS__
constexpr auto longWalk = "300000";
#else
constexpr auto longWalk = "5000000";
#endif

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
    const std::string traceFile = folder.path() + "/trace";
    const std::string scratchFile = folder.path() + "/shorter";
    const std::string replay = setting("ROMIKA_MONKEY_REPLAY", "");
    if (!replay.empty()) {
        expectNothingFound(walkInProcess({"--again", replay}, 600), replay, scratchFile);
        return;
    }
    const std::string seed = setting("ROMIKA_MONKEY_SEED", "1");
    const std::string steps = setting("ROMIKA_MONKEY_STEPS", isLongRun() ? longWalk : "30000");
    const int patience = 120 + std::atoi(steps.c_str()) / 50;
    expectNothingFound(walkInProcess({"--walk", seed, steps, traceFile}, patience), traceFile, scratchFile);
}
