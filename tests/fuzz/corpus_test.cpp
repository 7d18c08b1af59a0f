// Every fuzz target runs over its corpus, so that none of them rots between two runs of ./fuzz. A target ends the process
// where a reader breaks its promise.

#include "fuzz/recovery_targets.h"
#include "fuzz/targets.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

namespace {

namespace fs = std::filesystem;
const fs::path corpus = ROMIKA_SOURCE_DIR "/tests/fuzz/corpus";

std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// What a target of the recovery makes of its inputs in the corpus.
std::set<Recovered> endsOf(const std::string& target, Recovered (*recover)(BytesView bytes)) {
    std::set<Recovered> ends;
    for (const auto& entry : fs::directory_iterator(corpus / target)) {
        ends.insert(recover(bytesOf(entry.path())));
    }
    return ends;
}

} // namespace

TEST(FuzzCorpus, EachTargetKeepsItsPromisesOnItsCorpus) {
    for (const FuzzTarget& target : fuzzTargets()) {
        int inputs = 0;
        for (const auto& entry : fs::directory_iterator(corpus / target.name)) {
            SCOPED_TRACE(entry.path().string());
            target.run(bytesOf(entry.path()));
            ++inputs;
        }
        EXPECT_GE(inputs, 3) << target.name;
        target.run({});
    }
}

TEST(FuzzCorpus, LeadsToEveryEndOfARecovery) {
    const std::set<Recovered> all = {Recovered::asFound, Recovered::finished, Recovered::setAside};
    EXPECT_EQ(endsOf("change_journal", recoverByJournal), all);
    EXPECT_EQ(endsOf("swap_record", recoverBySwapRecord), all);
}

TEST(FuzzCorpus, BelongsToTargetsOnly) {
    std::set<std::string> targets;
    for (const FuzzTarget& target : fuzzTargets()) {
        targets.emplace(target.name);
    }
    for (const auto& entry : fs::directory_iterator(corpus)) {
        EXPECT_TRUE(targets.contains(entry.path().filename().string())) << entry.path();
    }
}
