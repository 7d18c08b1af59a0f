// Each operation that writes, in each way of failing, at each of its steps. What must hold is told in fault_runs.h.

#include "safety/fault_runs.h"
#include "support/source_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <regex>
#include <set>

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
                             way == FaultWay::powerCut || way == FaultWay::syncFails;
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

TEST(EveryWritingOperation, IsInTheListWhereverItIsWritten) {
    // A file that begins to write stands here only once its operation is in the list of writing_operations.cpp, or once it
    // is said why it needn't be: a folder that is made leaves no bytes, and readers open what may be written, too.
    const std::set<std::string> known = {
        "output/pdf_target.cpp",      "output/text_viewer.cpp",    "sheet/bulk_rewrite.cpp",  "sheet/change_journal.cpp",
        "sheet/change_recovery.cpp",  "sheet/item_file.cpp",       "sheet/read_ahead.cpp",    "sheet/record_window.cpp",
        "sheet/swap_record.cpp",      "sheet/text_file_writer.cpp", "sheet/work_files.cpp",   "start/file_choice.cpp",
        "start/make_folder.cpp",      "start/model_files.cpp",     "start/sample_board.cpp",  "structure/clip_source.cpp",
        "voice/reading_mode.cpp"};
    const std::regex writing(R"(\b(openRandom|openBulk|replaceWhole|moveIntoPlace|makeFolder)\(|files\.(copy|remove)\()");
    std::set<std::string> found;
    for (const SourceFile& file : productFiles(ROMIKA_SOURCE_DIR)) {
        const bool isCaller = file.path.ends_with(".cpp") && !file.path.starts_with("platform/") &&
                              !file.path.starts_with("data/tools/");
        if (isCaller && std::regex_search(file.text, writing)) {
            found.insert(file.path);
        }
    }
    EXPECT_EQ(found, known);
}

INSTANTIATE_TEST_SUITE_P(Safety, EveryWritingOperation,
                         testing::Combine(testing::Range<std::size_t>(0, writingOperations().size()),
                                          testing::ValuesIn(allFaultWays)),
                         caseName);
