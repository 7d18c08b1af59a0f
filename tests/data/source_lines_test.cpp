#include "data/tools/source_lines.h"

#include "platform/utf8.h"

#include <gtest/gtest.h>

namespace {

/// The line at which reading the source fails; -1 if it doesn't.
int failingLine(std::string_view source) {
    try {
        statements(CodePage(), source);
    } catch (const SourceError& error) {
        return static_cast<int>(error.line);
    }
    return -1;
}

} // namespace

TEST(SourceLines, AStatementHasAWordAndFieldsWithoutTheBlanksRoundThem) {
    const auto found = statements(CodePage(), "# remark\n\nitem:  氏名 | L | 20\nmemo:\n");
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].line, 3U);
    EXPECT_EQ(found[0].word, u"item");
    EXPECT_EQ(found[0].fields, (std::vector<Text>{u"氏名", u"L", u"20"}));
    EXPECT_EQ(found[1].fields, std::vector<Text>{u""});
}

TEST(SourceLines, ACharacterThatTheCodePageLacksIsRefusedWithItsLine) {
    EXPECT_EQ(failingLine("memo: a\nmemo: 𠮟\n"), 2);
    EXPECT_EQ(failingLine("memo: ü\n"), 1);
    EXPECT_EQ(failingLine("memo: a\tb\n"), 1);
    EXPECT_EQ(failingLine("memo: a\r\n"), 1);
    EXPECT_EQ(failingLine("memo: ～－―\n"), -1);
}

TEST(SourceLines, ACharacterThatWouldComeBackAsAnotherIsRefused) {
    EXPECT_EQ(failingLine("memo: \xE3\x80\x9C\n"), 1) << "the wave dash is stored as its partner";
}

TEST(SourceLines, ALineWithoutAColonIsNoStatement) {
    EXPECT_EQ(failingLine("memo: a\nrecord 1\n"), 2);
}

TEST(SourceLines, NumbersKeepTheirRange) {
    const auto found = statements(CodePage(), "item: 1 | x | 2.5 | -3\n");
    EXPECT_EQ(found[0].number(0, 4, 1, 254), 1);
    EXPECT_EQ(found[0].number(3, 4, -1000, 1000), -3);
    EXPECT_THROW(found[0].number(0, 4, 2, 254), SourceError);
    EXPECT_THROW(found[0].number(1, 4, 0, 254), SourceError);
    EXPECT_THROW(found[0].number(2, 4, 0, 254), SourceError);
    EXPECT_THROW(found[0].number(0, 3, 1, 254), SourceError) << "another number of fields";
}
