#include "data/tools/board_source.h"

#include <gtest/gtest.h>

namespace {

const std::string head = "board: b.000\nraw: 素点\nt: T\nz: z\nfive: 5\n";

Bytes boardOf(const std::string& source) {
    const CodePage codePage;
    const TableSource table = readTableSource(
        codePage, "item: ID | L | 3\nitem: 問1 | L | 2\nitem: 問2 | L | 2\nitem: 素点 | R | 3\nitem: T | R | 3\n"
                  "item: z | R | 8\nitem: 5 | R | 1\n");
    return boardFileOf(codePage, table, source);
}

} // namespace

TEST(BoardSource, HasOneValueALineAndThreeLinesAQuestion) {
    const Bytes expected = CodePage().encode(u"b.000\r\n3\r\n4\r\n5\r\n6\r\n1\r\nア\r\n5\r\n1\r\nイ\r\n-2\r\n");
    EXPECT_EQ(boardOf(head + "question: 問1 | ア | 5\nquestion: 問1 | イ | -2\n"), expected);
}

TEST(BoardSource, NamesItemsOfItsTableOnly) {
    EXPECT_THROW(boardOf(head + "question: 問3 | ア | 5\n"), SourceError);
    EXPECT_THROW(boardOf("board: b.000\nraw: 点\nt: T\nz: z\nfive: 5\n"), SourceError);
}

TEST(BoardSource, WhatTheScoringFormRefusesIsNoBoard) {
    EXPECT_THROW(boardOf(head + "question: 素点 | ア | 5\n"), SourceError);
    EXPECT_THROW(boardOf("board: b.000\nraw: 素点\nt: 素点\nz: z\nfive: 5\n"), SourceError);
    EXPECT_THROW(boardOf(head + "question: 問1 |  | 5\n"), SourceError);
    EXPECT_THROW(boardOf(head + "question: 問1 | ア | 1001\n"), SourceError);
    EXPECT_THROW(boardOf("board: b.000\nraw: 素点\nt: T\nz: z\n"), SourceError);
    EXPECT_THROW(boardOf(head + "six: ID\n"), SourceError);
}

TEST(BoardSource, AValueThatItsReaderWouldSplitIsRefused) {
    EXPECT_THROW(boardOf(head + "question: 問1 | A,B | 5\n"), SourceError);
    EXPECT_THROW(boardOf(head + "question: 問1 | \"A | 5\n"), SourceError);
}
