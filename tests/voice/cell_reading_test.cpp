#include "voice/cell_reading.h"

#include "platform/failure.h"
#include "sheet/record_window.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

using Said = std::vector<std::string>;

/// A table of twelve records whose last one holds the worked example, with that cell current.
struct SheetWorld : TestWorld {
    SheetWorld() {
        std::vector<std::vector<std::u16string_view>> records(11, {u"1", u"x", u"y", u"z"});
        records.push_back({u"12", u"東京", u"5", u"山田"});
        table({{u"ID", u"R", 4}, {u"住所", u"L", 6}, {u" 数 ", u"R", 3}, {u"氏名", u"L", 10}}, records);
        zormod.position.curRecord = 12;
        zormod.position.curItem = 3;
        zormod.speech.speechMode = 2;
        panel.txtREC = u" 12";
        panel.txtItemnum = u"3";
    }
    std::string move(MovedBox box) const { return utf8(cellMoveText(zormod, box, panel)); }
    std::string boxText(const Text& text, int start = 0, int length = 0) const {
        return utf8(boxTextReading(zormod, text, start, length));
    }
    void select(int kind, int from, int to) {
        zormod.selection.selectionKind = static_cast<std::int16_t>(kind);
        zormod.selection.selItemFrom = static_cast<std::int16_t>(from);
        zormod.selection.selItemTo = static_cast<std::int16_t>(to);
    }
    /// What a reading key says, long after everything before.
    Said cellKey() {
        later();
        readCellKey(zormod);
        return takeSpoken();
    }
    Said rowKey() {
        later();
        readRowKey(zormod);
        return takeSpoken();
    }
    Bytes& row() { return zormod.window.recordWindow[currentSlot(zormod)]; }
    PanelReadings panel;
};

} // namespace

TEST(CellMove, SaysTheDataFirstAndThenThePosition) {
    const SheetWorld world;
    EXPECT_EQ(world.move(MovedBox::record), "山田 ､  ｷﾞｮｳ12 ｺｳﾓｸ3 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(world.move(MovedBox::item), "山田､  ｷﾞｮｳ12 ｺｳﾓｸ3 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
}

TEST(CellMove, SaysTheDataAloneInTheOtherModes) {
    SheetWorld world;
    for (const int mode : {1, 3}) {
        world.zormod.speech.speechMode = static_cast<std::int16_t>(mode);
        EXPECT_EQ(world.move(MovedBox::record), "山田 ､");
        EXPECT_EQ(world.move(MovedBox::item), "山田､");
    }
}

TEST(CellMove, RepeatsThePanelWhichMayStillShowTheOldItem) {
    SheetWorld world;
    world.panel.txtItemnum = u"1";
    EXPECT_EQ(world.move(MovedBox::record), "山田 ､  ｷﾞｮｳ12 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
}

TEST(CellMove, SaysTheNameOfTheItemAsItStands) {
    SheetWorld world;
    world.zormod.position.curItem = 2;
    world.panel.txtItemnum = u"2";
    EXPECT_EQ(world.move(MovedBox::item), "5､  ｷﾞｮｳ12 ｺｳﾓｸ2  数  .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ");
}

TEST(CellMove, ACellOfBlanksHasAWord) {
    SheetWorld world;
    world.zormod.speech.speechMode = 1;
    world.zormod.position.curItem = 1;
    world.row().replace(4, 6, "      ");
    EXPECT_EQ(world.move(MovedBox::record), "ﾌﾞﾗﾝｸ ､");
    EXPECT_EQ(world.move(MovedBox::item), "ﾌﾞﾗﾝｸ､");
}

TEST(CellMove, FullWidthBlanksAreData) {
    SheetWorld world;
    world.zormod.speech.speechMode = 1;
    world.zormod.position.curItem = 1;
    world.row().replace(4, 6, "\x81\x40    ");
    EXPECT_EQ(world.move(MovedBox::item), "　､");
}

TEST(CellMove, ReadsTheWindowAndNotTheFile) {
    SheetWorld world;
    world.zormod.speech.speechMode = 1;
    world.row().replace(13, 4, "typd");
    EXPECT_EQ(world.move(MovedBox::item), "typd､");
}

TEST(CellMove, PutsThePinnedItemInFrontIfThatIsOn) {
    SheetWorld world;
    world.zormod.speech.speechMode = 1;
    world.zormod.input.pinnedItem = 1;
    EXPECT_EQ(world.move(MovedBox::record), "山田 ､");
    world.zormod.speech.pinnedAutoRead = 1;
    EXPECT_EQ(world.move(MovedBox::record), "東京 山田 ､");
    world.zormod.input.pinnedItem = 0;
    EXPECT_EQ(world.move(MovedBox::record), "12 山田 ､");
    world.zormod.input.pinnedItem = -1;
    EXPECT_EQ(world.move(MovedBox::record), "山田 ､");
}

TEST(CellKey, SaysTheUntrimmedCellWithItsNumbersInBothModes) {
    SheetWorld world;
    world.zormod.position.curItem = 3;
    world.row().replace(13, 10, "\x8E\x52\x93\x63\x81\x40\x81\x40  ");
    for (const int mode : {1, 2}) {
        world.zormod.speech.speechMode = static_cast<std::int16_t>(mode);
        EXPECT_EQ(world.cellKey(), Said{"山田　　  。ギョウ12 項目3氏名"});
    }
}

TEST(CellKey, WorkedExample) {
    SheetWorld world;
    world.row().replace(13, 10, "\x8E\x52\x93\x63\x81\x40\x81\x40  ");
    world.zormod.items.itemWidth[3] = 8;
    EXPECT_EQ(world.cellKey(), Said{"山田　　。ギョウ12 項目3氏名"});
}

TEST(CellKey, ACellOfBlanksHasItsOwnWordAndTheNameIsTrimmed) {
    SheetWorld world;
    world.zormod.position.curItem = 2;
    world.row().replace(10, 3, "   ");
    EXPECT_EQ(world.cellKey(), Said{"ブランク。ギョウ12 項目2数"});
}

TEST(CellKey, WorksBeforeAnyTableIsOpen) {
    TestWorld world;
    world.zormod.speech.speechMode = 1;
    readCellKey(world.zormod);
    EXPECT_EQ(world.takeSpoken(), Said{"ブランク。ギョウ1 項目0"});
}

TEST(CellKey, IsDroppedInsideTheInhibitTime) {
    SheetWorld world;
    readCellKey(world.zormod);
    readCellKey(world.zormod);
    readRowKey(world.zormod);
    EXPECT_EQ(world.takeSpoken().size(), 1u);
}

TEST(RowKey, SaysTheWholeRecordTrimmed) {
    SheetWorld world;
    EXPECT_EQ(world.rowKey(), Said{"ギョウ12 12東京    5山田"});
    world.row().replace(0, 4, "    ");
    EXPECT_EQ(world.rowKey(), Said{"ギョウ12 東京    5山田"});
}

TEST(RowKey, NeverSpeaksTheLineEnd) {
    SheetWorld world;
    world.row() = Bytes(254, 'x') + "\r\n";
    EXPECT_EQ(world.rowKey(), Said{"ギョウ12 " + std::string(254, 'x')});
}

TEST(RowKey, SaysThePartInTheSelectedItems) {
    SheetWorld world;
    for (const int kind : {1, 3}) {
        world.select(kind, 1, 2);
        EXPECT_EQ(world.rowKey(), Said{"ギョウ12 東京    5ｺｳﾓｸﾊﾝｲ指定ｱﾘ"});
        world.select(kind, 2, 1);
        EXPECT_EQ(world.rowKey(), Said{"ギョウ12 東京    5ｺｳﾓｸﾊﾝｲ指定ｱﾘ"});
        world.select(kind, 1, 1);
        EXPECT_EQ(world.rowKey(), Said{"ギョウ12 東京  ｺｳﾓｸﾊﾝｲ指定ｱﾘ"});
    }
}

TEST(RowKey, SaysTheWholeRecordIfWholeRecordsAreSelected) {
    SheetWorld world;
    world.select(2, 1, 2);
    world.row().replace(0, 4, "    ");
    EXPECT_EQ(world.rowKey(), Said{"ギョウ12 東京    5山田"});
}

TEST(RowKey, WorksBeforeAnyTableIsOpen) {
    TestWorld world;
    world.zormod.speech.speechMode = 1;
    readRowKey(world.zormod);
    EXPECT_EQ(world.takeSpoken(), Said{"ギョウ1 "});
}

TEST(RowKey, ASelectionOutsideTheItemsIsAFailure) {
    SheetWorld world;
    for (const int item : {-1, 200, 256}) {
        world.select(1, 0, item);
        world.later();
        EXPECT_THROW(readRowKey(world.zormod), RuntimeFailure) << item;
    }
}

TEST(BoxText, SaysTheTextAndTheBytesLeft) {
    const SheetWorld world;
    EXPECT_EQ(world.boxText(u"山a"), "山a ざん7バイト");
    EXPECT_EQ(world.boxText(u"  "), "   ざん8バイト");
}

TEST(BoxText, AnEmptyBoxExplainsItself) {
    const SheetWorld world;
    EXPECT_EQ(world.boxText(u""), " ざん10バイトｲﾏ ﾆｭｳﾘｮｸﾎﾞｯｸｽﾆﾜ ｹﾞﾝｺｳｶﾞｱﾘﾏｾﾝ。CRﾀﾞｹｦﾀﾀｸﾄ ｷｿﾞﾝﾃﾞｰﾀﾜ "
                                  "ｶｷｶﾜﾗﾅｲﾃﾞ、ｼﾞｺｳﾓｸﾆ ｶｷｺﾐｺｳﾓｸｶﾞ ｲﾄﾞｳｼﾏｽ");
}

TEST(BoxText, ASelectionIsSetOffByAPause) {
    const SheetWorld world;
    EXPECT_EQ(world.boxText(u"abcdef", 1, 2), "abc。defﾆｭｳﾘｮｸﾎﾞｯｸｽﾅｲｹﾞﾝｺｳｦ ﾖﾐｱｹﾞﾏｼﾀ､ｵﾄｺｺﾞｴﾜ ｾﾝﾀｸｻﾚﾀ ﾃｷｽﾄﾌﾞﾃﾞｽ");
    EXPECT_EQ(world.boxText(u"abcdef", 0, 6), "abcdef。ﾆｭｳﾘｮｸﾎﾞｯｸｽﾅｲｹﾞﾝｺｳｦ ﾖﾐｱｹﾞﾏｼﾀ､ｵﾄｺｺﾞｴﾜ ｾﾝﾀｸｻﾚﾀ ﾃｷｽﾄﾌﾞﾃﾞｽ");
}

TEST(StoredData, SaysTheCellOfTheWindow) {
    SheetWorld world;
    EXPECT_EQ(utf8(storedDataReading(world.zormod)), "山田。ｲﾏﾉ ｺｳﾓｸﾉ ｷｿﾞﾝﾃﾞｰﾀｦ ﾖﾐｱｹﾞﾏｼﾀ");
    world.row().replace(13, 10, "          ");
    EXPECT_EQ(utf8(storedDataReading(world.zormod)), "ｲﾏﾉ ｺｳﾓｸ ﾜ ﾐｷﾆｭｳﾃﾞｽ");
}

TEST(Facts, OfTheItem) {
    SheetWorld world;
    world.panel.txtLR = u"R";
    world.zormod.position.curItem = 2;
    EXPECT_EQ(utf8(itemFactsReading(world.zormod, world.panel)), "ｺｳﾓｸ2,数。R。ｺｳﾓｸﾊﾊﾞ3");
}

TEST(Facts, OfTheRow) {
    const SheetWorld world;
    EXPECT_EQ(utf8(rowNumberReading(world.zormod)), "ｷﾞｮｳ12");
}

TEST(Facts, OfTheFile) {
    SheetWorld world;
    world.panel.memo = u"名簿";
    const std::string path = utf8(world.zormod.file.programFolder) + "t.txt";
    EXPECT_EQ(utf8(fileFactsReading(world.zormod, world.panel)), path + "。ｷﾛｸｽｳ12。.ﾋｮｳﾒﾓ名簿");
}

TEST(Facts, OfTheState) {
    const PanelReadings panel{.Label8 = u" 制限字数:4 ", .Label11 = u"1,3,", .Label13 = u"12"};
    EXPECT_EQ(utf8(stateFactsReading(panel)), "ｷﾆｭｳｺｳﾓｸわ1,3,.IDｺｳﾓｸ.12.制限字数:4");
}

TEST(Pinned, SaysTheDataAndTheTitle) {
    SheetWorld world;
    world.zormod.input.pinnedItem = 1;
    EXPECT_EQ(pinnedData(world.zormod), u"東京");
    EXPECT_EQ(utf8(pinnedTitle(world.zormod)), "1項目:住所");
    EXPECT_EQ(utf8(pinnedItemReading(world.zormod)), "東京。1項目:住所");
}

TEST(Pinned, TheNameIsTrimmedAndCut) {
    SheetWorld world;
    world.zormod.input.pinnedItem = 2;
    EXPECT_EQ(utf8(pinnedTitle(world.zormod)), "2項目:数");
    world.zormod.items.itemName[2] = u"  " + Text(50, u'n');
    EXPECT_EQ(pinnedTitle(world.zormod), u"2項目:" + Text(40, u'n'));
    EXPECT_EQ(pinnedItemReading(world.zormod), u"5。2項目:" + Text(16, u'n'));
}

TEST(Pinned, NothingPinnedHasASentence) {
    const SheetWorld world;
    EXPECT_EQ(pinnedData(world.zormod), u"");
    EXPECT_EQ(utf8(pinnedItemReading(world.zormod)), "常時表示項目はありません");
}
