#include "sheet/cell.h"
#include "sheet/item_file.h"
#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

#include <random>

namespace {

/// A table of items given by alignment and width, with nothing behind it on the disk.
struct CellWorld : TestWorld {
    explicit CellWorld(const std::vector<std::pair<std::u16string_view, int>>& shapes) {
        ItemTable& items = zormod.items;
        items.itemCount = static_cast<std::int16_t>(shapes.size() - 1);
        for (std::size_t i = 0; i < shapes.size(); ++i) {
            items.itemAlign[static_cast<std::int64_t>(i)] = Text(shapes[i].first);
            items.itemWidth[static_cast<std::int64_t>(i)] = static_cast<std::int16_t>(shapes[i].second);
        }
        computeItemStart(items);
    }
    Bytes& row() { return zormod.window.recordWindow[1]; }
};

} // namespace

TEST(Cell, RightAlignmentLosesFirstBytesAndLeftLosesLast) {
    CellWorld world({{u"R", 4}, {u"L", 4}, {u"L", 1}});
    setScratchCell(world.zormod, u"12345", 0);
    setScratchCell(world.zormod, u"12345", 1);
    EXPECT_EQ(world.row().substr(0, 8), "23451234");
}

TEST(Cell, ACutInFrontOfARightAlignedValueMayLeaveHalfACharacter) {
    CellWorld world({{u"L", 2}, {u"R", 5}, {u"L", 1}});
    setScratchCell(world.zormod, u"あいう", 1);
    EXPECT_EQ(world.row().substr(0, 8), "  \xA0\x82\xA2\x82\xA4 ");
}

TEST(Cell, ShortValuesAreFilledUpWithBlanks) {
    CellWorld world({{u"R", 4}, {u"L", 4}, {u"L", 1}});
    setScratchCell(world.zormod, u"7", 0);
    setScratchCell(world.zormod, u"7", 1);
    EXPECT_EQ(world.row().substr(0, 8), "   77   ");
    EXPECT_EQ(getScratchCell(world.zormod, 0), u"   7");
    EXPECT_EQ(getScratchCell(world.zormod, 1), u"7   ");
}

TEST(Cell, AnythingButACapitalRIsLeft) {
    CellWorld world({{u"r", 3}, {u"", 3}, {u"R ", 3}, {u"L", 1}});
    for (int item = 0; item < 3; ++item) {
        setScratchCell(world.zormod, u"1", item);
    }
    EXPECT_EQ(world.row().substr(0, 9), "1  1  1  ");
}

TEST(Cell, HalfACharacterMeetsTheNeighboursByte) {
    CellWorld world({{u"L", 1}, {u"L", 3}, {u"L", 1}});
    world.row().replace(0, 4, " ABC");
    setScratchCell(world.zormod, u"あ", 0);
    // 0x82 alone stays, and with the "A" behind it forms no character that the code page has.
    EXPECT_EQ(world.row().substr(0, 4), "\x82"
                                        "ABC");
    // With 0xA0 behind it the two are one character again.
    world.row().replace(0, 2, " \xA0");
    setScratchCell(world.zormod, u"あ", 0);
    EXPECT_EQ(world.row().substr(0, 2), "\x82\xA0");
    EXPECT_EQ(cellOf(world.zormod, world.row(), 1).size(), 3u);
}

TEST(Cell, DuplicateCodesInTheNeighboursBecomeCanonical) {
    CellWorld world({{u"L", 2}, {u"L", 2}, {u"L", 1}});
    world.row().replace(2, 2, "\xEE\xEF"); // small roman one in its second place
    setScratchCell(world.zormod, u"x", 0);
    EXPECT_EQ(world.row().substr(0, 4), "x \xFA\x40");
}

TEST(Cell, WritingTheLastItemDropsTheLineEnd) {
    CellWorld world({{u"L", 4}, {u"L", 4}});
    world.row() = Bytes(254, 'x') + "\r\n";
    setScratchCell(world.zormod, u"ab", 1);
    EXPECT_EQ(world.row(), "xxxxab  " + Bytes(248, ' '));
    world.row() = Bytes(254, 'x') + "\r\n";
    setScratchCell(world.zormod, u"ab", 0);
    EXPECT_EQ(world.row(), "ab  " + Bytes(250, 'x') + "\r\n");
}

TEST(Cell, AnItemOfWidthZeroReadsEmptyAndChangesNothing) {
    CellWorld world({{u"L", 2}, {u"L", 0}, {u"R", 0}, {u"L", 2}});
    world.row().replace(0, 4, "abcd");
    const Bytes before = world.row();
    setScratchCell(world.zormod, u"zzz", 1);
    setScratchCell(world.zormod, u"zzz", 2);
    EXPECT_EQ(world.row(), before);
    EXPECT_EQ(getScratchCell(world.zormod, 1), u"");
    EXPECT_EQ(itemSpan(world.zormod.items, world.row(), 1, 2), "");
}

TEST(Cell, SlotZeroAndOneAreSeparate) {
    CellWorld world({{u"L", 2}, {u"L", 2}});
    setScratch0Cell(world.zormod, u"a", 0);
    setScratchCell(world.zormod, u"b", 0);
    EXPECT_EQ(world.zormod.window.recordWindow[0].substr(0, 1), "a");
    EXPECT_EQ(world.zormod.window.recordWindow[1].substr(0, 1), "b");
}

TEST(Cell, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
    CellWorld world({{u"L", 4}, {u"L", 2}});
    setScratchCell(world.zormod, u"a\u00E4b", 0);
    EXPECT_EQ(world.row().substr(0, 4), "a?b ");
}

TEST(Cell, RealigningIsWhatTakingTheCellOutAndPuttingItBackMakes) {
    std::mt19937 random(57);
    for (int run = 0; run < 3000; ++run) {
        const int items = 1 + static_cast<int>(random() % 4);
        std::vector<std::pair<std::u16string_view, int>> shapes;
        for (int item = 0; item < items; ++item) {
            shapes.emplace_back(random() % 2 == 0 ? u"R" : u"L", random() % 70);
        }
        CellWorld world(shapes);
        Bytes row(recordLength, ' ');
        for (char& byte : row) {
            const unsigned kind = random() % 6;
            byte = static_cast<char>(kind < 3 ? ' ' : kind == 3 ? 0xED + random() % 16 : random());
        }
        const std::int64_t item = static_cast<std::int64_t>(random()) % items;
        world.row() = row;
        realignScratchCell(world.zormod, item);
        const Bytes realigned = world.row();

        const CodePage& page = world.codePage;
        const auto first = static_cast<std::size_t>(world.zormod.items.itemStart[item] - 1);
        const auto width = static_cast<std::size_t>(shapes[static_cast<std::size_t>(item)].second);
        const Bytes value = page.encode(trimmed(page.decode(row.substr(first, width))));
        const Bytes blanks(width - value.size(), ' ');
        Bytes expected = row.substr(0, first) +
                         (shapes[static_cast<std::size_t>(item)].first == u"R" ? blanks + value : value + blanks);
        expected = page.encode(page.decode(item == items - 1 ? expected : expected + row.substr(first + width)));
        expected.resize(recordLength, ' ');
        ASSERT_EQ(realigned, expected) << "item " << item << " in run " << run;
    }
}

TEST(Cell, AnItemOutsideTheArraysIsAFailure) {
    CellWorld world({{u"L", 2}, {u"L", 2}});
    EXPECT_THROW(getScratchCell(world.zormod, 256), RuntimeFailure);
    EXPECT_THROW(getScratchCell(world.zormod, -1), RuntimeFailure);
    EXPECT_THROW(setScratchCell(world.zormod, u"x", 256), RuntimeFailure);
}

TEST(Cell, CommitPutsTheBoxIntoTheCurrentRowAndLeavesTheFileAlone) {
    TestWorld world;
    world.table({{u"ID", u"L", 2}, {u"a", u"R", 4}}, {{u"1", u"x"}, {u"2", u"y"}});
    world.zormod.position.curRecord = 2;
    world.zormod.position.curItem = 1;
    const std::string before = world.bytesOf("t.txt");
    commitCell(world.zormod, u"山");
    EXPECT_EQ(getCell(world.zormod, 1), u"  山");
    EXPECT_EQ(world.screen.rowRedraws, 1);
    EXPECT_EQ(world.bytesOf("t.txt"), before);
    EXPECT_EQ(getRecordCell(world.zormod, 2, 1), u"   y");
}

TEST(Cell, SlashesOnlyAreShownAsBlanks) {
    CellWorld world({{u"L", 2}, {u"L", 2}, {u"L", 2}});
    world.row().replace(0, 6, "//a/  ");
    EXPECT_EQ(shownCell(world.zormod, world.row(), 0), u"  ");
    EXPECT_EQ(shownCell(world.zormod, world.row(), 1), u"a/");
    EXPECT_EQ(shownCell(world.zormod, world.row(), 2), u"  ");
}
