#include "platform/text.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

TEST(TextTrimmed, TakesHalfWidthBlanksFromBothEndsOnly) {
    EXPECT_EQ(trimmed(u"  a b  "), u"a b");
    EXPECT_EQ(trimmed(u"a"), u"a");
    EXPECT_EQ(trimmed(u"   "), u"");
    EXPECT_EQ(trimmed(u""), u"");
}

TEST(TextTrimmed, KeepsFullWidthBlanksAndOtherWhiteSpace) {
    EXPECT_EQ(trimmed(u" \u3000a\u3000 "), u"\u3000a\u3000");
    EXPECT_EQ(trimmed(u" \ta\r\n "), u"\ta\r\n");
}

TEST(TextLastPosition, IsOneBasedAndZeroIfMissing) {
    EXPECT_EQ(lastPosition(u"A:\\b\\c", u"\\"), 5u);
    EXPECT_EQ(lastPosition(u"\\", u"\\"), 1u);
    EXPECT_EQ(lastPosition(u"abcabc", u"bc"), 5u);
    EXPECT_EQ(lastPosition(u"abc", u"x"), 0u);
    EXPECT_EQ(lastPosition(u"abc", u""), 0u);
    EXPECT_EQ(lastPosition(u"", u"x"), 0u);
    EXPECT_EQ(lastPosition(u"ab", u"abc"), 0u);
}

TEST(TextContains, FindsANeedleAnywhereButNeverTheEmptyOne) {
    EXPECT_TRUE(contains(u"abc", u"a"));
    EXPECT_TRUE(contains(u"abc", u"bc"));
    EXPECT_FALSE(contains(u"abc", u"ac"));
    EXPECT_FALSE(contains(u"abc", u""));
    EXPECT_FALSE(contains(u"", u"a"));
}

TEST(FailureText, NamesEachKindInItsOwnWords) {
    EXPECT_EQ(failureText(FailureKind::subscript), u"添字が範囲を越えました");
    EXPECT_EQ(failureText(FailureKind::division), u"0で割り算をしました");
    EXPECT_EQ(failureText(FailureKind::overflow), u"数値があふれました");
    EXPECT_EQ(failureText(FailureKind::impossible), u"計算できない値です");
    EXPECT_EQ(failureText(FailureKind::file), u"ファイル操作に失敗しました");
    EXPECT_EQ(failureText(FailureKind::printing), u"印刷に失敗しました");
    EXPECT_EQ(failureText(FailureKind::communication), u"通信に失敗しました");
    EXPECT_EQ(failureTitle, u"実行時エラー");
}

TEST(RuntimeFailureValue, IsNoRowWriteUnlessItSaysSo) {
    EXPECT_FALSE(RuntimeFailure{FailureKind::file}.rowWrite);
    EXPECT_TRUE(FatalFailure{FailureKind::subscript}.report.empty());
}

TEST(Text, EveryKindOfLineEndBecomesOneCr) {
    EXPECT_EQ(withLinesEndedByCr(u"a\r\nb\rc\nd"), u"a\rb\rc\rd");
    EXPECT_EQ(withLinesEndedByCr(u"\r\r\n\n\n"), u"\r\r\r\r");
    EXPECT_EQ(withLinesEndedByCr(u"\nab\r\n"), u"\rab\r");
    EXPECT_EQ(withLinesEndedByCr(u""), u"");
}
