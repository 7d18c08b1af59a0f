// The monkey's program. Without a word on the command line it is a test program like every other; its tests start it
// again for each walk, so that a walk that crashes or hangs is one that has found something:
//     monkey_tests --walk SEED STEPS TRACEFILE
//     monkey_tests --again TRACEFILE
//     monkey_tests --show TRACEFILE    the same, and prints what happens at each key

#include "platform/qt/romika_application.h"
#include "tests/monkey/monkey_walk.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

/// A complaint of the desk itself ends the walk too.
class EndAtFailure : public testing::EmptyTestEventListener {
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed()) {
            tellAndEnd(std::string("desk: ") + result.summary());
        }
    }
};

std::string contentsOf(const char* path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

int walk(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::UnitTest::GetInstance()->listeners().Append(new EndAtFailure);
    RomikaApplication application(argc, argv);
    const std::string_view kind = argv[1];
    if (kind == "--walk" && argc == 5) {
        walkAtRandom(std::strtoull(argv[2], nullptr, 10), std::atol(argv[3]), argv[4]);
    } else if ((kind == "--again" || kind == "--show") && argc == 3) {
        walkAgain(traceOf(contentsOf(argv[2])), kind == "--show");
    } else {
        return 2;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    return argc > 1 ? walk(argc, argv) : RUN_ALL_TESTS();
}
