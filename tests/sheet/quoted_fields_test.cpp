#include "sheet/quoted_fields.h"

#include "platform/failure.h"
#include "support/real_folder.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Reader = Bytes (QuotedFields::*)();

std::vector<std::string> fieldsOf(std::string_view bytes, Reader reader = &QuotedFields::next) {
    RealFolder folder;
    folder.make("f", bytes);
    const auto file = folder.files.openRandom(u"f");
    QuotedFields fields(*file);
    std::vector<std::string> result;
    while (!fields.atEnd()) {
        result.push_back((fields.*reader)());
    }
    return result;
}

} // namespace

TEST(QuotedFields, PlainFieldsEndAtCommasAndAtEveryKindOfLineEnd) {
    EXPECT_THAT(fieldsOf("a,b\r\nc\rd\ne"), ElementsAre("a", "b", "c", "d", "e"));
}

TEST(QuotedFields, BlanksAheadAreDroppedAndBlanksBehindAreKept) {
    EXPECT_THAT(fieldsOf("  2 \r\n   \"x\"\r\n"), ElementsAre("2 ", "x"));
}

TEST(QuotedFields, AQuotedFieldKeepsBlanksCommasAndLineEnds) {
    EXPECT_THAT(fieldsOf("\" a,b \"\r\n\"c\r\nd\"\r\n"), ElementsAre(" a,b ", "c\r\nd"));
}

TEST(QuotedFields, WhatFollowsTheSecondQuoteIsDroppedUpToTheEndOfTheField) {
    EXPECT_THAT(fieldsOf("\"ab\"cd\"\r\n\"e\"f,g\r\n"), ElementsAre("ab", "e", "g"));
}

TEST(QuotedFields, OneFieldOfALineTakesItsLineWithIt) {
    EXPECT_THAT(fieldsOf("\"a\",\"b\"\r\n\"c\"\"d\r\n e,f\r\"g\r\nh\"", &QuotedFields::nextOfLine),
                ElementsAre("a", "c", "e", "g\r\nh"));
}

TEST(QuotedFields, AQuoteInsideAPlainFieldIsPartOfIt) {
    EXPECT_THAT(fieldsOf("a\"b\"\r\n"), ElementsAre("a\"b\""));
}

TEST(QuotedFields, EmptyFieldsCount) {
    EXPECT_THAT(fieldsOf("\r\n\r\n"), ElementsAre("", ""));
    EXPECT_THAT(fieldsOf(",\"\"\r\n"), ElementsAre("", ""));
    EXPECT_THAT(fieldsOf(""), IsEmpty());
}

TEST(QuotedFields, AQuoteThatNeverClosesRunsToTheEndOfTheFile) {
    EXPECT_THAT(fieldsOf("\"ab\r\nc"), ElementsAre("ab\r\nc"));
}

TEST(QuotedFields, TellsAFieldThatTheEndOfTheFileHasCut) {
    RealFolder folder;
    folder.make("f", "\"a\"\r\nb,\"c");
    const auto file = folder.files.openRandom(u"f");
    QuotedFields fields(*file);
    for (const bool isCut : {false, false, true}) {
        fields.next();
        EXPECT_EQ(fields.isCut(), isCut);
    }
}

TEST(QuotedFields, BytesOfTwoByteCharactersNeverEndAField) {
    EXPECT_THAT(fieldsOf("\"\x83\x5C\x81\x7C\x82\"\r\n"), ElementsAre("\x83\x5C\x81\x7C\x82"));
}

TEST(QuotedFields, FieldsAndLineEndsAcrossTheReadersBlocksStayWhole) {
    for (int length = 65530; length < 65540; ++length) {
        const std::string first(static_cast<std::size_t>(length), 'x');
        std::string bytes;
        for (int i = 0; i < 10; ++i) {
            bytes += "\"" + first.substr(0, 6553 + (i == 9 ? static_cast<std::size_t>(length - 65530) : 0)) + "\"\r\n";
        }
        EXPECT_EQ(fieldsOf(bytes + "last").size(), 11U) << length;
        EXPECT_EQ(fieldsOf(bytes + "last").back(), "last") << length;
    }
}

TEST(QuotedFields, ReadingPastTheEndIsAFileFailure) {
    RealFolder folder;
    folder.make("f", "a\r\n");
    const auto file = folder.files.openRandom(u"f");
    QuotedFields fields(*file);
    fields.skip(1);
    EXPECT_THROW(fields.next(), RuntimeFailure);
    EXPECT_THROW(fields.skip(1), RuntimeFailure);
    fields.skip(0);
    fields.skip(-5);
}

TEST(QuotedFields, AFieldThatNoWriterMakesIsAFileFailure) {
    EXPECT_THROW(fieldsOf("\"" + std::string(100000, 'x')), RuntimeFailure);
    EXPECT_THROW(fieldsOf(std::string(100000, 'x')), RuntimeFailure);
}
