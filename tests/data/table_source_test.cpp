#include "data/tools/table_source.h"

#include <gtest/gtest.h>

namespace {

int failingLine(std::string_view source) {
    try {
        readTableSource(CodePage(), source);
    } catch (const SourceError& error) {
        return static_cast<int>(error.line);
    }
    return -1;
}

const std::string twoItems = "memo: 名簿\nitem: ID | L | 3\nitem: 点 | R | 4\n";

} // namespace

TEST(TableSource, MakesBothFilesOfATable) {
    const CodePage codePage;
    const TableSource table = readTableSource(codePage, twoItems + "record: 1 | 90\nrecord: あ | \n");
    EXPECT_EQ(itemFileOf(codePage, table), codePage.encode(u"100  ' 0,名簿,, 1\r\n1000 'ID,L\r\n1001 '点,R\r\n"
                                                           u"2000 ' 3\r\n2001 ' 4\r\n"));
    const Bytes filler(247, ' ');
    EXPECT_EQ(table.records, "1    90" + filler + "\r\n" + codePage.encode(u"あ") + "     " + filler + "\r\n");
    EXPECT_EQ(table.items.itemStart[1], 4);
}

TEST(TableSource, ManyItemsAreNamedByTheirNumber) {
    const TableSource table = readTableSource(CodePage(), "item: ID | L | 4\nitems: 125 | 項目 | R | 2\n");
    EXPECT_EQ(table.items.itemCount, 125);
    EXPECT_EQ(table.items.itemName[125], u"項目125");
    EXPECT_EQ(table.items.itemWidth[125], 2);
}

TEST(TableSource, WidthsSumTo254AtMost) {
    EXPECT_EQ(failingLine("item: ID | L | 4\nitem: a | L | 250\n"), -1);
    EXPECT_EQ(failingLine("item: ID | L | 4\nitem: a | L | 251\n"), 2);
    EXPECT_EQ(failingLine("item: ID | L | 5\nitems: 125 | 項目 | R | 2\n"), 2);
}

TEST(TableSource, ACellFitsItsItem) {
    EXPECT_EQ(failingLine(twoItems + "record: abc | 1234\n"), -1);
    EXPECT_EQ(failingLine(twoItems + "record: 1 | 1\nrecord: ああ | 1\n"), 5);
    EXPECT_EQ(failingLine(twoItems + "record: 1 | 12345\n"), 4);
}

TEST(TableSource, ARecordHasACellForEachItem) {
    EXPECT_EQ(failingLine(twoItems + "record: 1\n"), 4);
    EXPECT_EQ(failingLine(twoItems + "record: 1 | 2 | 3\n"), 4);
}

TEST(TableSource, WhatAnItemDefinitionFileCannotHoldIsRefused) {
    EXPECT_EQ(failingLine("memo: a,b\nitem: ID | L | 3\n"), 1);
    EXPECT_EQ(failingLine("item: a,b | L | 3\n"), 1);
    EXPECT_EQ(failingLine("item: ID | C | 3\n"), 1);
    EXPECT_EQ(failingLine("item:  | L | 3\n"), 1);
    EXPECT_EQ(failingLine("item: ID | L | 0\n"), 1);
    EXPECT_EQ(failingLine(twoItems + "record: 1 | 2\nitem: b | L | 3\n"), 5);
    EXPECT_EQ(failingLine(twoItems + "width: 3\n"), 4);
    EXPECT_EQ(failingLine("memo: a\n"), 0) << "a table has an ID item at least";
}
