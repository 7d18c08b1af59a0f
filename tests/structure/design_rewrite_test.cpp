#include "structure/design_rewrite.h"
#include "structure/design_world.h"

#include "sheet/item_file.h"

#include <random>

namespace {

ItemTable items(const std::vector<DesignRow>& rows) { return itemsOf(rows, {}); }

const std::vector<DesignRow> oldRows = {{u"ID", u"L", u"3"}, {u"名", u"L", u"6"}, {u"点", u"R", u"4"}};

std::string rewritten(const Text& record, const std::vector<DesignRow>& made) {
    const CodePage codePage;
    Bytes bytes = codePage.encode(record);
    bytes.resize(dataLength, ' ');
    const Bytes result = rewrittenRecord(codePage, bytes + "\r\n", items(oldRows), items(made));
    EXPECT_EQ(result.size(), 256U);
    EXPECT_EQ(result.substr(254), "\r\n");
    return utf8(trimmed(codePage.decode(result.substr(0, 254))));
}

TEST(DesignRewrite, WiderCellsAreFilledOnTheSideOfTheirAlignment) {
    EXPECT_EQ(rewritten(u"1  山田    90x", {{u"", u"R", u"4"}, {u"", u"L", u"8"}, {u"", u"R", u"5"}, {u"", u"L", u"1"}}),
              "1山田       90");
}

TEST(DesignRewrite, NarrowerCellsLoseTheEndOnTheLeftAndTheStartOnTheRight) {
    EXPECT_EQ(rewritten(u"123abcdef4567", {{u"", u"L", u"2"}, {u"", u"R", u"4"}, {u"", u"L", u"3"}}), "12cdef456");
}

TEST(DesignRewrite, AChangedAlignmentMovesTheTrimmedValue) {
    EXPECT_EQ(rewritten(u"1  ab      77", {{u"", u"R", u"3"}, {u"", u"R", u"6"}, {u"", u"L", u"4"}}), "1    ab77");
}

TEST(DesignRewrite, CellsAreMatchedByNumberSoAnInsertedItemShiftsThem) {
    EXPECT_EQ(rewritten(u"1  ab      77", {{u"ID", u"L", u"3"}, {u"新", u"L", u"4"}, {u"名", u"L", u"6"}, {u"点", u"R", u"4"}}),
              "1  ab  77");
}

TEST(DesignRewrite, WhatStoodBehindTheItemsIsBlankAfterwards) {
    EXPECT_EQ(rewritten(u"1  ab      77behind", oldRows), "1  ab      77");
}

TEST(DesignRewrite, AnItemWithoutWidthGivesBlanks) {
    const CodePage codePage;
    ItemTable old = items({{u"", u"L", u"2"}, {u"", u"L", u"0"}, {u"", u"L", u"3"}});
    const Bytes record = rewrittenRecord(codePage, Bytes("12abc") + Bytes(251, ' '), old,
                                         items({{u"", u"L", u"2"}, {u"", u"R", u"4"}, {u"", u"L", u"3"}}));
    EXPECT_EQ(record.substr(0, 9), "12    abc");
}

TEST(DesignRewrite, HalfACharacterAtAnOldEdgeStaysWhatItIs) {
    const CodePage codePage;
    const Bytes record = rewrittenRecord(codePage, Bytes("\x82\xA0\x82", 3) + Bytes(253, ' '),
                                         items({{u"", u"L", u"1"}, {u"", u"L", u"2"}}),
                                         items({{u"", u"L", u"2"}, {u"", u"R", u"3"}}));
    EXPECT_EQ(record.substr(0, 5), Bytes("\x82  \xA0\x82", 5));
}

TEST(DesignRewrite, OnlyItemsFrom1OnOfTheOldTableAreCompared) {
    const ItemTable old = items(oldRows);
    EXPECT_FALSE(cutsDiffer(old, oldRows));
    EXPECT_FALSE(cutsDiffer(old, {{u"ID", u"R", u"9"}, {u"別", u"L", u" 6"}, {u"点", u"R", u"4"}}));
    EXPECT_FALSE(cutsDiffer(old, {oldRows[0], oldRows[1], oldRows[2], {u"新", u"L", u"5"}}));
    EXPECT_TRUE(cutsDiffer(old, {oldRows[0], {u"名", u"R", u"6"}, oldRows[2]}));
    EXPECT_TRUE(cutsDiffer(old, {oldRows[0], oldRows[1], {u"点", u"R", u"5"}}));
    EXPECT_TRUE(cutsDiffer(old, {oldRows[0], oldRows[1]}));
    EXPECT_FALSE(cutsDiffer(items({oldRows[0]}), {{u"", u"R", u"1"}}));
}

/// The same from the description of a record alone: byte by byte, without the product's cells.
Bytes modelOf(const CodePage& codePage, const Bytes& record, const std::vector<DesignRow>& old,
              const std::vector<DesignRow>& made) {
    const auto widthOf = [](const DesignRow& row) { return std::stoi(std::string(row.width.begin(), row.width.end())); };
    Bytes out(256, ' ');
    std::size_t oldAt = 0;
    std::size_t at = 0;
    for (std::size_t i = 0; i < made.size(); ++i) {
        const auto width = static_cast<std::size_t>(widthOf(made[i]));
        if (i < old.size()) {
            const auto oldWidth = static_cast<std::size_t>(widthOf(old[i]));
            Bytes value = record.substr(oldAt, oldWidth);
            oldAt += oldWidth;
            while (!value.empty() && value.front() == ' ') { value.erase(0, 1); }
            while (!value.empty() && value.back() == ' ') { value.pop_back(); }
            value = codePage.encode(codePage.decode(value));
            const bool right = made[i].align == u"R";
            for (std::size_t k = 0; k < std::min(width, value.size()); ++k) {
                if (right) {
                    out[at + width - 1 - k] = value[value.size() - 1 - k];
                } else {
                    out[at + k] = value[k];
                }
            }
        }
        at += width;
    }
    out[254] = '\r';
    out[255] = '\n';
    return out;
}

TEST(DesignRewrite, RandomRecordsAgreeWithAnIndependentModel) {
    const CodePage codePage;
    std::mt19937 random(20240611);
    const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit + 1)); };
    const auto randomRows = [&] {
        std::vector<DesignRow> rows;
        int left = dataLength;
        for (int items = upTo(12); items >= 0 && left > 0; --items) {
            const int width = 1 + upTo(std::min(left - 1, 30));
            left -= width;
            const std::string digits = std::to_string(width);
            rows.push_back({u"x", upTo(1) == 0 ? u"L" : u"R", Text(digits.begin(), digits.end())});
        }
        return rows;
    };
    for (int round = 0; round < 3000; ++round) {
        const auto old = randomRows();
        const auto made = randomRows();
        Bytes record;
        for (int i = 0; i < recordLength; ++i) {
            // Blanks, single bytes, and bytes of every kind, so that characters are cut at every place.
            const int kind = upTo(3);
            record += kind == 0 ? ' ' : static_cast<char>(kind == 1 ? 'a' + upTo(25) : 0x20 + upTo(0xDF));
        }
        ASSERT_EQ(rewrittenRecord(codePage, record, items(old), items(made)), modelOf(codePage, record, old, made))
            << "round " << round;
    }
}

} // namespace
