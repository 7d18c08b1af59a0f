#include "voice/watched_text.h"

#include <gtest/gtest.h>

#include <vector>

TEST(WatchedText, RunsItsRuleAfterARealChangeOnly) {
    WatchedText box;
    std::vector<Text> seen;
    box.onChange([&] { seen.push_back(box.text()); });
    EXPECT_TRUE(box.set(u"a"));
    EXPECT_FALSE(box.set(u"a"));
    EXPECT_FALSE(box.typed(u"a"));
    EXPECT_TRUE(box.typed(u"ab"));
    EXPECT_TRUE(box.set(u""));
    EXPECT_FALSE(box.typed(u""));
    EXPECT_EQ(seen, (std::vector<Text>{u"a", u"ab", u""}));
}

TEST(WatchedText, ARuleMaySetTheTextAgainAndMeetsThatChangeToo) {
    WatchedText box;
    std::vector<Text> seen;
    box.onChange([&] {
        seen.push_back(box.text());
        box.set(u"");
    });
    EXPECT_TRUE(box.typed(u"abc"));
    EXPECT_EQ(box.text(), u"");
    EXPECT_EQ(seen, (std::vector<Text>{u"abc", u""}));
}

TEST(WatchedText, NeedsNoRule) {
    WatchedText box;
    EXPECT_TRUE(box.set(u"a"));
    EXPECT_EQ(box.text(), u"a");
}
