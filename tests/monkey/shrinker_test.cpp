// The parts of the monkey that can be tested without a desk: the shortening of a list that fails, and the trace.

#include "tests/monkey/monkey_key.h"
#include "tests/monkey/shrinker.h"

#include <gtest/gtest.h>

#include <numeric>

namespace {

std::vector<int> upTo(int last) {
    std::vector<int> list(static_cast<std::size_t>(last));
    std::iota(list.begin(), list.end(), 1);
    return list;
}

bool holds(const std::vector<int>& list, int wanted) {
    return std::find(list.begin(), list.end(), wanted) != list.end();
}

} // namespace

TEST(Shrinker, LeavesTheElementsThatFailTogether) {
    const auto fails = [](const std::vector<int>& list) { return holds(list, 17) && holds(list, 803); };
    EXPECT_EQ(shrunk<int>(upTo(1000), fails, 1000), (std::vector<int>{17, 803}));
}

TEST(Shrinker, KeepsTheOrderThatTheFailureNeeds) {
    const auto fails = [](const std::vector<int>& list) {
        const auto five = std::find(list.begin(), list.end(), 5);
        return std::find(five, list.end(), 9) != list.end();
    };
    EXPECT_EQ(shrunk<int>({5, 1, 9, 5, 2}, fails, 100), (std::vector<int>{5, 9}));
}

TEST(Shrinker, GivesUpAfterItsTriesWithAListThatStillFails) {
    const auto fails = [](const std::vector<int>& list) { return holds(list, 17) && holds(list, 803); };
    int tries = 0;
    const auto counted = [&](const std::vector<int>& list) {
        ++tries;
        return fails(list);
    };
    const auto list = shrunk<int>(upTo(1000), counted, 7);
    EXPECT_EQ(tries, 7);
    EXPECT_TRUE(fails(list));
    EXPECT_LT(list.size(), 1000u);
}

TEST(Shrinker, CanEmptyAListThatFailsAnyway) {
    EXPECT_EQ(shrunk<int>(
                  upTo(9), [](const std::vector<int>&) { return true; }, 100),
              std::vector<int>{});
}

TEST(MonkeyTrace, ComesBackAsItWasWritten) {
    Trace trace{42, {}};
    for (int key = 0; key <= static_cast<int>(Key::z); ++key) {
        trace.keys.push_back(
            {MonkeyKey::Kind::press, {static_cast<Key>(key), key % 2 == 0, key % 3 == 0, key % 5 == 0}});
    }
    trace.keys.push_back({MonkeyKey::Kind::down, ctrlShiftKey(Key::t)});
    trace.keys.push_back({MonkeyKey::Kind::repeat, altKey(Key::f10)});
    trace.keys.push_back({MonkeyKey::Kind::up, shiftKey(Key::digit0)});
    trace.keys.push_back({MonkeyKey::Kind::turn});
    trace.keys.push_back({MonkeyKey::Kind::type, {}, u" 山 ｱ,\""});
    trace.keys.push_back({MonkeyKey::Kind::compose, {}, u""});
    trace.keys.push_back({MonkeyKey::Kind::commit, {}, u"東京"});
    trace.keys.push_back({MonkeyKey::Kind::copy, {}, u"a\r\nb"});
    const Trace back = traceOf(textOf(trace));
    EXPECT_EQ(back.table, 42u);
    ASSERT_EQ(back.keys.size(), trace.keys.size());
    for (std::size_t i = 0; i < trace.keys.size(); ++i) {
        EXPECT_EQ(back.keys[i].kind, trace.keys[i].kind) << i;
        EXPECT_EQ(back.keys[i].stroke, trace.keys[i].stroke) << i;
        EXPECT_EQ(back.keys[i].text, trace.keys[i].text) << i;
    }
}

TEST(MonkeyTrace, LeavesOutWhatIsNoKey) {
    EXPECT_EQ(traceOf("table 3\nnonsense\npress Nokey\npress Down\n").keys.size(), 1u);
}
