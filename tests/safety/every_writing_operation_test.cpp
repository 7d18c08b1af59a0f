// Each operation that writes, in each way of failing, at each of its steps. What must hold is told in fault_runs.h.

#include "safety/fault_runs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

namespace {

using Case = std::tuple<std::size_t, FaultWay>;

class EveryWritingOperation : public testing::TestWithParam<Case> {};

std::string caseName(const testing::TestParamInfo<Case>& info) {
    std::string name = writingOperations()[std::get<0>(info.param)].name + "_" + nameOf(std::get<1>(info.param));
    std::replace_if(name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

} // namespace

TEST_P(EveryWritingOperation, LeavesTheOldFilesOrTheNewOnes) {
    const auto [index, way] = GetParam();
    const WritingOperation& operation = writingOperations()[index];
    const FaultReport report = runWithFaults(operation, way, faultScope());
    for (const auto& problem : report.problems) {
        ADD_FAILURE() << problem;
    }
    // A deletion writes nothing, and a single row leaves nothing to recover.
    const bool isAlwaysMet = way == FaultWay::failsOnce || way == FaultWay::failsFromThenOn || way == FaultWay::kill ||
                             way == FaultWay::powerCut;
    if (isAlwaysMet) {
        EXPECT_GT(report.points, 0);
    }
}

TEST(FaultRuns, NoticeADiskThatLosesSyncs) {
    int broken = 0;
    for (const WritingOperation& operation : writingOperations()) {
        FaultScope scope = faultScope();
        scope.losesSyncs = true;
        broken += runWithFaults(operation, FaultWay::powerCut, scope).problems.empty() ? 0 : 1;
        EXPECT_TRUE(runWithFaults(operation, FaultWay::kill, scope).problems.empty()) << operation.name;
    }
    // Of a single row in one sector, and of a deletion, nothing can be torn.
    EXPECT_GT(broken, 20);
}

INSTANTIATE_TEST_SUITE_P(Safety, EveryWritingOperation,
                         testing::Combine(testing::Range<std::size_t>(0, writingOperations().size()),
                                          testing::ValuesIn(allFaultWays)),
                         caseName);
