#include "tests/monkey/clip_rules.h"

#include <gtest/gtest.h>

namespace {

/// A clip of two records and one item.
std::string clipOf(const std::string& first, const std::string& second) {
    return " 2 \r\n 1 \r\n 2 \r\n 1 \r\n 3 \r\n\"" + first + "\"\r\n\"" + second + "\"\r\n";
}

} // namespace

TEST(ClipRules, AClipReadsBack) { EXPECT_TRUE(clipReadsBack(clipOf("ab", "c,d "))); }
TEST(ClipRules, ACellThatIsCutReadsBack) { EXPECT_TRUE(clipReadsBack(clipOf("a\"b", "cd"))); }
TEST(ClipRules, ACellThatComesBackAsTwoReadsBack) { EXPECT_TRUE(clipReadsBack(clipOf("a\",b", "cd"))); }
TEST(ClipRules, ACellThatComesBackWithTheNextReadsBack) { EXPECT_TRUE(clipReadsBack(clipOf("\",", "cd"))); }
TEST(ClipRules, AClipThatIsCutShortDoesNot) { EXPECT_FALSE(clipReadsBack(" 2 \r\n 1 \r\n 2 \r\n 1 \r\n 3 \r\n\"ab\"\r\n")); }
TEST(ClipRules, ACellThatIsLeftOpenDoesNot) {
    EXPECT_FALSE(clipReadsBack(clipOf("ab", "cd").substr(0, clipOf("ab", "cd").size() - 3)));
    EXPECT_TRUE(clipReadsBack(clipOf("ab", "cd").substr(0, clipOf("ab", "cd").size() - 2)));
}
TEST(ClipRules, AnEmptyFileDoesNot) { EXPECT_FALSE(clipReadsBack("")); }

TEST(ClipRules, ABackupFitsUpToTheRecordBehindTheLast) {
    EXPECT_TRUE(backupFits(" 1 \r\n\"ab\"\r\n", 0));
    EXPECT_TRUE(backupFits(" 4 \r\n\"ab\"\r\n", 3));
    EXPECT_FALSE(backupFits(" 5 \r\n\"ab\"\r\n", 3));
    EXPECT_FALSE(backupFits("", 3));
}

TEST(ClipRules, ABackupThatIsLeftOpenDoesNotFit) {
    EXPECT_TRUE(backupFits(" 1 \r\n\"a\"b\"\r\n", 3));
    EXPECT_TRUE(backupFits(" 1 \r\n\"a\",\"\r\n", 3));
    EXPECT_FALSE(backupFits(" 1 \r\n\"a\"\r\n\"b", 3));
}

TEST(ClipRules, TheHeadTellsTheShape) {
    EXPECT_EQ(shapeOf(clipOf("ab", "cd")).records, 2u);
    EXPECT_EQ(shapeOf(clipOf("ab", "cd")).items, 1u);
    EXPECT_EQ(shapeOf("").records, 0u);
    EXPECT_EQ(shapeOf(" 2 \r\n 1 \r\n").records, 0u) << "cut short in its head";
}

TEST(ClipRules, ABackupHasARowALine) {
    const PasteBackup backup = backupOf(" 4 \r\n\"ab \"\r\n\"c\"d\"\r\n\"e\r\nf\"\r\n");
    EXPECT_EQ(backup.first, 4);
    EXPECT_EQ(backup.rows, (std::vector<std::string>{"ab ", "c", "e\r\nf"}));
    EXPECT_EQ(backupOf("").first, 0);
}
