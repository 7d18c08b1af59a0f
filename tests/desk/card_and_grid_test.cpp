// The card view and the grid view as a sighted helper sees and clicks them.

#include "edit/forms/frmGrid.h"
#include "support/qt/view_desk.h"

#include <QLabel>
#include <QTableView>

#include <gtest/gtest.h>

TEST(CardView, ShowsNumberNameAndDataOfTheCurrentRecord) {
    ViewDesk desk;
    desk.key(plainKey(Key::right));
    desk.press("frmSHEET", "Command3");
    EXPECT_EQ(desk.zormod.display.viewMode, 1);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    auto* grid = static_cast<QTableView*>(desk.partOf("frmKOJIND", "Grid1"));
    ASSERT_TRUE(grid->isVisible());
    const auto cell = [&](int row, int column) { return grid->model()->index(row, column).data().toString(); };
    EXPECT_EQ(cell(1, 0), QStringLiteral("1"));
    EXPECT_EQ(cell(1, 1), QStringLiteral("氏名"));
    EXPECT_EQ(cell(1, 2), QStringLiteral("山田"));
    EXPECT_EQ(grid->model()->rowCount(), 5);
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("項目名"));
    EXPECT_EQ(grid->model()->headerData(2, Qt::Horizontal).toString(), QStringLiteral("  データ"));
    EXPECT_EQ(grid->currentIndex().row(), 1);
    const auto* heading = static_cast<QLabel*>(desk.partOf("frmKOJIND", "heading"));
    EXPECT_EQ(heading->text(), QStringLiteral("ロミカカード形式表示1記録"));
    EXPECT_EQ(desk.part("frmKOJIND")->accessibleName(), heading->text());
    EXPECT_EQ(static_cast<QLabel*>(desk.partOf("frmKOJIND", "Label1"))->text(), QStringLiteral("ID:1"));
    desk.key(plainKey(Key::down));
    EXPECT_EQ(heading->text(), QStringLiteral("ロミカカード形式表示2記録"));
    EXPECT_EQ(grid->currentIndex().row(), 1);
}

TEST(CardView, AClickPicksTheItemAndDataInputGoesBack) {
    ViewDesk desk;
    desk.press("frmSHEET", "Command3");
    auto* grid = static_cast<QTableView*>(desk.partOf("frmKOJIND", "Grid1"));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(3, 2)).center());
    desk.settle();
    EXPECT_EQ(desk.place(), std::pair(1, 3));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    desk.press("frmKOJIND", "Command3");
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(CardView, TheRowsMoveOnByElevenWhenTheCurrentItemLeavesThem) {
    EditDesk desk;
    desk.form.resize(1200, 1000);
    const TestWorld::Item item{u"項目", u"L", 4};
    desk.openTable(std::vector<TestWorld::Item>(61, item), {{u"1"}});
    desk.zormod.display.viewMode = 1;
    desk.form.redrawView();
    desk.settle();
    auto* grid = static_cast<QTableView*>(desk.partOf("frmKOJIND", "Grid1"));
    ASSERT_GT(grid->rowAt(grid->viewport()->height() - 1), 11) << "item 11 would be seen without any move";
    for (int i = 0; i < 10; ++i) {
        desk.key(plainKey(Key::right));
    }
    EXPECT_EQ(grid->rowAt(0), 0);
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.zormod.position.curItem, 11);
    EXPECT_EQ(grid->rowAt(0), 11);
    desk.key(plainKey(Key::left));
    EXPECT_EQ(grid->rowAt(0), 0);
}

TEST(GridView, ShowsTheWindowWithNumbersAndNames) {
    ViewDesk desk;
    desk.press("frmSHEET", "Command3");
    desk.press("frmKOJIND", "Command1");
    EXPECT_EQ(desk.zormod.display.viewMode, 2);
    auto* grid = static_cast<QTableView*>(desk.partOf("frmGrid", "Grid1"));
    EXPECT_EQ(grid->model()->rowCount(), desk.zormod.position.windowRows);
    EXPECT_EQ(grid->model()->columnCount(), 5);
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("氏名"));
    EXPECT_EQ(grid->model()->headerData(1, Qt::Vertical).toString(), QStringLiteral("2"));
    EXPECT_EQ(grid->model()->index(0, 1).data().toString(), QStringLiteral("山田"));
    const int unit = QFontMetrics(grid->font()).horizontalAdvance(u'0');
    EXPECT_EQ(grid->columnWidth(1), 14 * unit);
    desk.key(plainKey(Key::right));
    EXPECT_EQ(static_cast<QLabel*>(desk.partOf("frmGrid", "Label1"))->text(), QStringLiteral("山田"));
    EXPECT_EQ(grid->currentIndex(), grid->model()->index(0, 1));
    desk.press("frmGrid", "Command1");
    EXPECT_EQ(desk.zormod.display.viewMode, 0);
    EXPECT_TRUE(desk.part("frmSHEET")->isVisible());
}

TEST(GridView, IsRebuiltOnlyWhenTheTablesShapeChanges) {
    ViewDesk desk;
    desk.zormod.display.viewMode = 2;
    desk.form.redrawView();
    const auto& grid = static_cast<const frmGrid&>(*desk.form.views()[2]);
    const int built = grid.rebuilds();
    desk.key(plainKey(Key::down));
    desk.key(plainKey(Key::right));
    desk.keys.type(u"abc");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(grid.rebuilds(), built);
    desk.zormod.items.itemWidth[1] = 9;
    desk.form.redrawView();
    EXPECT_EQ(grid.rebuilds(), built + 1);
}

TEST(GridView, AClickPicksRecordAndItem) {
    ViewDesk desk;
    desk.zormod.display.viewMode = 2;
    desk.form.redrawView();
    desk.settle();
    auto* grid = static_cast<QTableView*>(desk.partOf("frmGrid", "Grid1"));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(grid->model()->index(2, 1)).center());
    desk.settle();
    EXPECT_EQ(desk.place(), std::pair(3, 1));
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(Views, AreDrawnWithoutATableAndWithATableOfOneItem) {
    EditDesk desk;
    desk.open(desk.form);
    for (const int mode : {0, 1, 2}) {
        desk.zormod.display.viewMode = static_cast<std::int16_t>(mode);
        desk.form.redrawView();
        desk.settle();
        EXPECT_FALSE(desk.form.grab().isNull());
    }
    EditDesk empty;
    empty.openTable({{u"ID", u"L", 5}}, {});
    EXPECT_EQ(empty.text("Text1"), "0");
    EXPECT_EQ(empty.text("txtREC"), " 1");
    EXPECT_FALSE(empty.form.grab().isNull());
    EXPECT_EQ(empty.endStatus, std::nullopt);
}

TEST(Views, ALongCellNeitherWidensTheWindowNorIsTakenForMarkup) {
    EditDesk desk;
    desk.form.resize(700, 600);
    const Text longText = u"<b>x</b>" + Text(200, u'y');
    desk.openTable({{u"ID", u"L", 3}, {u"備考", u"L", 240}}, {{u"1", longText}});
    desk.zormod.display.viewMode = 2;
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.form.width(), 700);
    const auto* label = static_cast<QLabel*>(desk.partOf("frmGrid", "Label1"));
    EXPECT_EQ(label->text().toStdU16String(), longText);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}
