// A test that is written but never run is worse than none. The build lists which test files went into which program;
// these tests hold that list against the folder, against what ctest starts and against what registered itself.

#include "test_programs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Paths = std::set<std::string>;

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path);
    EXPECT_TRUE(file.good()) << path;
    std::ostringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

/// Every file below tests/ whose name ends in `ending`, as paths below tests/.
Paths filesOnDisk(const std::string& ending) {
    const std::filesystem::path folder = ROMIKA_SOURCE_DIR "/tests";
    Paths found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto path = entry.path().lexically_relative(folder).generic_string();
        if (path.ends_with(ending)) {
            found.insert(path);
        }
    }
    return found;
}

Paths testFilesOnDisk() { return filesOnDisk("_test.cpp"); }

Paths testFilesOfProgram(const std::string& program) {
    Paths files;
    for (const auto& built : builtTestFiles) {
        if (program == built.program) {
            files.insert(built.path);
        }
    }
    return files;
}

/// What of `wanted` is not in `present`.
Paths leftOut(const Paths& wanted, const Paths& present) {
    Paths missing;
    for (const auto& path : wanted) {
        if (!present.contains(path)) {
            missing.insert(path);
        }
    }
    return missing;
}

/// Which of `files` registered no test. A registered name may be absolute or relative to any folder, as the compiler
/// was given it.
Paths withoutTest(const Paths& files, const Paths& registered) {
    Paths silent;
    for (const auto& file : files) {
        bool found = false;
        for (const auto& name : registered) {
            found = found || ("/" + name).ends_with("/tests/" + file);
        }
        if (!found) {
            silent.insert(file);
        }
    }
    return silent;
}

/// True if a list of ctest starts the program or script.
bool isStarted(const std::string& ctestList, const std::string& program) {
    return ctestList.find("/" + program + "\"") != std::string::npos;
}

/// All lists of ctest below the build's folder of tests, one behind the other.
std::string ctestLists() {
    std::string lists;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(testBuildFolder)) {
        if (entry.path().filename() == "CTestTestfile.cmake") {
            lists += contentsOf(entry.path());
        }
    }
    return lists;
}

} // namespace

TEST(EveryTestRuns, EachTestFileIsPartOfAProgram) {
    Paths built;
    for (const auto& file : builtTestFiles) {
        built.insert(file.path);
    }
    EXPECT_EQ(leftOut(testFilesOnDisk(), built), Paths{});
}

TEST(EveryTestRuns, EachProgramWithTestsIsStartedByCtest) {
    const auto lists = ctestLists();
    for (const auto& file : builtTestFiles) {
        EXPECT_TRUE(isStarted(lists, file.program)) << file.program << " is built and never run";
    }
}

TEST(EveryTestRuns, EachScriptedStoryIsStartedByCtest) {
    const auto lists = ctestLists();
    for (const auto& story : filesOnDisk("_story.py")) {
        EXPECT_TRUE(isStarted(lists, story)) << story << " is written and never run";
    }
}

TEST(EveryTestRuns, EachFileOfThisProgramRegistersATest) {
    Paths registered;
    const auto& unitTest = *testing::UnitTest::GetInstance();
    for (int suite = 0; suite < unitTest.total_test_suite_count(); ++suite) {
        const auto& tests = *unitTest.GetTestSuite(suite);
        for (int test = 0; test < tests.total_test_count(); ++test) {
            registered.insert(tests.GetTestInfo(test)->file());
        }
    }
    const auto files = testFilesOfProgram("core_tests");
    EXPECT_FALSE(files.empty());
    EXPECT_EQ(withoutTest(files, registered), Paths{});
}

TEST(EveryTestRuns, NoTestIsSwitchedOff) {
    const std::string mark = std::string("DISABLED") + "_"; // in two pieces, or this file would find itself
    for (const auto& path : testFilesOnDisk()) {
        EXPECT_EQ(contentsOf(std::string(ROMIKA_SOURCE_DIR "/tests/") + path).find(mark), std::string::npos) << path;
    }
}

TEST(EveryTestRuns, AFileThatNoProgramHoldsIsNoticed) {
    EXPECT_EQ(leftOut({"sheet/cell_test.cpp", "sheet/forgotten_test.cpp"}, {"sheet/cell_test.cpp"}),
              Paths{"sheet/forgotten_test.cpp"});
}

TEST(EveryTestRuns, AFileThatRegistersNothingIsNoticed) {
    const Paths registered{"/somewhere/tests/sheet/cell_test.cpp", "../../tests/voice/words_test.cpp",
                           "tests/edit/keys_test.cpp"};
    EXPECT_EQ(withoutTest({"sheet/cell_test.cpp", "voice/words_test.cpp", "edit/keys_test.cpp"}, registered), Paths{});
    EXPECT_EQ(withoutTest({"sheet/cell_test.cpp", "cell_test.cpp"}, registered), Paths{"cell_test.cpp"});
}

TEST(EveryTestRuns, AProgramThatCtestDoesNotKnowIsNoticed) {
    const std::string list = "add_test([=[core]=] \"/build/bin/core_tests\")\n";
    EXPECT_TRUE(isStarted(list, "core_tests"));
    EXPECT_FALSE(isStarted(list, "desk_tests"));
}
