#include "edit/sheet_rows.h"

#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// The characters of a row as UTF-8, each with its column.
std::vector<std::string> placed(const std::vector<SheetGlyph>& glyphs) {
    std::vector<std::string> texts;
    for (const SheetGlyph& glyph : glyphs) {
        texts.push_back(std::to_string(glyph.column) + (glyph.printable ? utf8(Text(1, glyph.unit)) : "box"));
    }
    return texts;
}

struct SheetWorld : TestWorld {
    SheetWorld() {
        table({{u"ID", u"L", 3}, {u"氏名", u"L", 6}, {u"年齢", u"R", 4}}, {{u"1", u"山a", u"42"}, {u"2", u"b", u"7"}});
    }
    void setRow(const Bytes& bytes) { storeSlot(zormod, rowSlot(1), bytes); }
};

} // namespace

TEST(SheetRows, ADoubleByteCharacterTakesExactlyTwoColumns) {
    SheetWorld world;
    const auto glyphs = rowGlyphs(world.zormod, 1);
    EXPECT_THAT(placed(glyphs), ElementsAre("01", "3山", "5a", "114", "122"));
    EXPECT_EQ(glyphs[1].columns, 2);
    EXPECT_EQ(glyphs[2].columns, 1);
}

TEST(SheetRows, HalfWidthKanaTakeOneColumn) {
    SheetWorld world;
    world.setRow(world.codePage.encode(u"ｱｲ漢x"));
    EXPECT_THAT(placed(rowGlyphs(world.zormod, 1)), ElementsAre("0ｱ", "1ｲ", "2漢", "4x"));
}

TEST(SheetRows, ABareByteIsABoxAndMovesNothing) {
    SheetWorld world;
    // The first half of a character, cut off by an edge, with a blank behind it; a NUL; and an unassigned byte.
    world.setRow(Bytes("\x8E b", 3) + Bytes("\0", 1) + "\xA0z");
    EXPECT_THAT(placed(rowGlyphs(world.zormod, 1)), ElementsAre("0box", "2b", "3box", "4box", "5z"));
}

TEST(SheetRows, ACellOfSlashesOnlyIsBlankAndAnotherCellWithSlashesIsNot) {
    SheetWorld world;
    world.setRow("///a/////"
                 "  1/");
    EXPECT_THAT(placed(rowGlyphs(world.zormod, 1)), ElementsAre("3a", "4/", "5/", "6/", "7/", "8/", "111", "12/"));
}

TEST(SheetRows, ARecordNotYetWrittenIsBlankBehindItsItemsToo) {
    SheetWorld world;
    world.setRow(world.zormod.window.slashLine);
    EXPECT_THAT(rowGlyphs(world.zormod, 1), IsEmpty());
    EXPECT_EQ(viewCell(world.zormod, 1, 1), u"");
}

TEST(SheetRows, RowsOutsideTheWindowAreEmptyAndNothingIsThrown) {
    SheetWorld world;
    for (const std::int64_t row : {-5, 0, 21, 102, 100000}) {
        EXPECT_THAT(rowGlyphs(world.zormod, row), IsEmpty()) << row;
        EXPECT_EQ(viewCell(world.zormod, row, 0), u"") << row;
    }
    EXPECT_EQ(viewCell(world.zormod, 1, -1), u"");
    EXPECT_EQ(viewCell(world.zormod, 1, 3), u"");
}

TEST(SheetRows, NothingIsThrownWithoutATableOrWithADamagedOne) {
    TestWorld world;
    world.zormod.items.itemCount = 32767;
    world.zormod.items.itemWidth[254] = -3;
    world.zormod.position.windowRows = 30000;
    world.zormod.position.curRecord = -7;
    EXPECT_THAT(headerCells(world.zormod), IsEmpty());
    EXPECT_EQ(currentRow(world.zormod), 0);
    EXPECT_EQ(shownRows(world.zormod), 100);
    EXPECT_THAT(rowGlyphs(world.zormod, 100), IsEmpty());
    EXPECT_EQ(sheetColumns(world.zormod), 0);
}

TEST(SheetRows, TheHeaderNamesEachItemAboveItsCell) {
    SheetWorld world;
    EXPECT_THAT(headerCells(world.zormod),
                ElementsAre(HeaderCell{0, 0, 3, u"ID"}, HeaderCell{1, 3, 6, u"氏名"}, HeaderCell{2, 9, 4, u"年齢"}));
    EXPECT_EQ(sheetColumns(world.zormod), 13);
}

TEST(SheetRows, ATableWithoutItemsShowsTheIdItemAlone) {
    TestWorld world;
    world.table({{u"ID", u"L", 5}}, {});
    EXPECT_THAT(headerCells(world.zormod), ElementsAre(HeaderCell{0, 0, 5, u"ID"}));
}

TEST(SheetRows, ANameIsCutBeforeTheCharacterThatWouldPassTheItem) {
    SheetWorld world;
    EXPECT_THAT(placed(textGlyphs(world.codePage, u"氏名", 3, 3)), ElementsAre("3氏"));
}

TEST(SheetRows, AClickPicksTheItemBeforeTheFirstOneThatStartsFurtherRight) {
    SheetWorld world;
    EXPECT_EQ(itemAtColumn(world.zormod, -1), 0);
    EXPECT_EQ(itemAtColumn(world.zormod, 2), 0);
    EXPECT_EQ(itemAtColumn(world.zormod, 3), 1);
    EXPECT_EQ(itemAtColumn(world.zormod, 8), 1);
    EXPECT_EQ(itemAtColumn(world.zormod, 9), 2);
    EXPECT_EQ(itemAtColumn(world.zormod, 200), 2);
}

TEST(SheetRows, APointGivesTheRowUnderIt) {
    SheetWorld world;
    world.zormod.position.windowRows = 3;
    EXPECT_EQ(rowAtHeight(world.zormod, -1, 10), 0);
    EXPECT_EQ(rowAtHeight(world.zormod, 0, 10), 1);
    EXPECT_EQ(rowAtHeight(world.zormod, 29, 10), 3);
    EXPECT_EQ(rowAtHeight(world.zormod, 30, 10), 0);
    EXPECT_EQ(rowAtHeight(world.zormod, 5, 0), 0);
}

TEST(SheetRows, RowsShowTheRecordsFromTheWindowsFirstOne) {
    SheetWorld world;
    world.zormod.position.windowFirst = 41;
    world.zormod.position.curRecord = 43;
    EXPECT_EQ(recordOfRow(world.zormod, 1), 41);
    EXPECT_EQ(currentRow(world.zormod), 3);
    world.zormod.position.curRecord = 61;
    EXPECT_EQ(currentRow(world.zormod), 0);
}

TEST(SheetRows, RowsThatFitAreAtLeastTwoAndAtMostAHundred) {
    EXPECT_EQ(rowsThatFit(599, 30), 19);
    EXPECT_EQ(rowsThatFit(600, 30), 20);
    EXPECT_EQ(rowsThatFit(10, 30), 4);
    EXPECT_EQ(rowsThatFit(9000, 10), 100);
    EXPECT_EQ(rowsThatFit(500, 0), 4);
}
