// The three views as a sighted helper sees and clicks them.

#include "edit/font_sizes.h"
#include "edit/forms/frmGrid.h"
#include "edit/forms/sheet_pictures.h"
#include "edit/forms/views.h"
#include "edit/sheet_rows.h"
#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "support/qt/edit_desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetricsF>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

const QColor paleYellow(0xFF, 0xFF, 0xC0);

/// Remembers what parts of a widget were painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget* watched) { watched->installEventFilter(this); }
    QRegion painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

/// A table of 40 records that is wider than the window.
struct ViewDesk : EditDesk {
    ViewDesk() {
        form.resize(900, 700);
        std::vector<std::vector<std::u16string_view>> records(40, {u"1", u"山田", u"42", u"東京", u"x"});
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 4}, {u"住所", u"L", 90}, {u"備考", u"L", 60}},
                  records);
        zormod.speech.speechMode = 1;
    }
    QWidget* sheet(const char* name) { return partOf("frmSHEET", name); }
    void press(const char* view, const char* button) {
        QTest::mouseClick(partOf(view, button), Qt::LeftButton);
        world.later();
        settle();
    }
    /// A point in the middle of a cell of the standard view.
    QPoint middleOf(int row, int item) {
        const int unit = cellWidth() / itemColumns(zormod, zormod.position.curItem);
        return QPoint((itemColumn(zormod, item) + 1) * unit, (row - 1) * rowHeight() + rowHeight() / 2);
    }
    int rowHeight() { return sheet("Picture2")->height() - 2 * EchoCell::frame; }
    int cellWidth() { return sheet("Picture2")->width() - 2 * EchoCell::frame; }
    void clickCell(int row, int item) {
        QTest::mouseClick(sheet("Picture1"), Qt::LeftButton, {}, middleOf(row, item));
        settle();
    }
    QImage image(const char* name) { return sheet(name)->grab().toImage(); }
    std::pair<int, int> place() const { return {zormod.position.curRecord, zormod.position.curItem}; }
};

} // namespace

TEST(SheetFont, EveryCharacterIsExactlyOneOrTwoUnitsWideAtEverySize) {
    for (const int size : {8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 48, 72}) {
        const SheetFont font = sheetFont(fontPixels(size));
        const QFontMetricsF metrics(font.font);
        EXPECT_EQ(QFontInfo(font.font).family(), QStringLiteral("IPAGothic"));
        EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(QStringLiteral("0ｱ")), 2 * font.unit) << size;
        EXPECT_DOUBLE_EQ(metrics.horizontalAdvance(QStringLiteral("漢①")), 4 * font.unit) << size;
        EXPECT_GE(font.rowHeight, fontPixels(size));
    }
}

TEST(SheetFont, ABareByteIsDrawnAsABox) {
    const SheetFont font = sheetFont(20);
    QImage blank(40, 30, QImage::Format_RGB32);
    blank.fill(Qt::white);
    QImage drawn = blank;
    QPainter painter(&drawn);
    drawGlyphs(painter, font, {{0xF78E, 1, 1, false}}, QPoint(), Qt::black);
    painter.end();
    EXPECT_EQ(drawn.copy(0, 0, font.unit, 30), blank.copy(0, 0, font.unit, 30));
    EXPECT_NE(drawn.copy(font.unit, 0, font.unit, 30), blank.copy(font.unit, 0, font.unit, 30));
    EXPECT_EQ(drawn.copy(2 * font.unit, 0, 20 - font.unit, 30), blank.copy(0, 0, 20 - font.unit, 30));
}

TEST(SheetView, TheEchoLiesOverTheCurrentCellAndFollowsIt) {
    ViewDesk desk;
    desk.key(plainKey(Key::right));
    QWidget* echo = desk.sheet("Picture2");
    const int unit = desk.cellWidth() / 10;
    EXPECT_EQ(echo->x(), 3 * unit - EchoCell::frame);
    EXPECT_EQ(echo->y(), -EchoCell::frame);
    desk.key(plainKey(Key::down));
    EXPECT_EQ(echo->y(), desk.rowHeight() - EchoCell::frame);
}

TEST(SheetView, TheEchoIsBlackOnPaleYellowInAStrongFrameInEveryPalette) {
    const QPalette before = QApplication::palette();
    for (const QColor ground : {QColor(Qt::white), QColor(Qt::black)}) {
        QApplication::setPalette(QPalette(ground));
        ViewDesk desk;
        desk.key(plainKey(Key::right));
        const QImage image = desk.image("Picture2");
        EXPECT_EQ(image.pixelColor(image.width() - EchoCell::frame - 2, image.height() / 2), paleYellow);
        EXPECT_EQ(image.pixelColor(1, image.height() / 2), QColor(Qt::black));
        int black = 0;
        for (int x = EchoCell::frame; x < image.width() - EchoCell::frame; ++x) {
            for (int y = EchoCell::frame; y < image.height() - EchoCell::frame; ++y) {
                black += image.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
            }
        }
        EXPECT_GT(black, 20);
    }
    QApplication::setPalette(before);
}

TEST(SheetView, TypingShowsInTheEchoAndEscapeBringsTheCellBack) {
    ViewDesk desk;
    desk.key(plainKey(Key::right));
    const QImage stored = desk.image("Picture2");
    desk.keys.type(u"abc");
    desk.settle();
    const QImage typed = desk.image("Picture2");
    EXPECT_NE(typed, stored);
    EXPECT_EQ(typed.pixelColor(typed.width() - EchoCell::frame - 2, typed.height() / 2), paleYellow);
    desk.key(plainKey(Key::escape));
    EXPECT_EQ(desk.image("Picture2"), stored);
}

TEST(SheetView, OnlyTheCurrentRowIsRepaintedWhenACellIsCommitted) {
    ViewDesk desk;
    desk.key(plainKey(Key::down));
    desk.settle();
    PaintWatch watch(desk.sheet("Picture1"));
    commitCell(desk.zormod, u"new");
    desk.settle();
    EXPECT_FALSE(watch.painted.isEmpty());
    EXPECT_GE(watch.painted.boundingRect().top(), desk.rowHeight() - EchoCell::frame);
    EXPECT_LE(watch.painted.boundingRect().bottom(), 2 * desk.rowHeight() + EchoCell::frame);
}

TEST(SheetView, PaintingNeedsNoFile) {
    ViewDesk desk;
    const QImage before = desk.image("Picture1");
    desk.zormod.files.byNumber[1].reset();
    EXPECT_EQ(desk.image("Picture1"), before);
}

TEST(SheetView, TheRowsOfTheWindowFollowTheHeightOfTheSheet) {
    ViewDesk desk;
    const auto expected = [&] { return desk.sheet("Picture1")->height() / desk.rowHeight(); };
    const int rows = desk.zormod.position.windowRows;
    EXPECT_EQ(rows, expected());
    desk.form.resize(900, 500);
    desk.settle();
    EXPECT_LT(desk.zormod.position.windowRows, rows);
    EXPECT_EQ(desk.zormod.position.windowRows, expected());
}

TEST(SheetView, ALargerFontHasFewerRowsAndGivesARangeUp) {
    ViewDesk desk;
    const int rows = desk.zormod.position.windowRows;
    const int height = desk.rowHeight();
    desk.zormod.selection = {2, 1, 2, 0, 0};
    desk.press("frmSHEET", "Command1");
    EXPECT_GT(desk.rowHeight(), height);
    EXPECT_LT(desk.zormod.position.windowRows, rows);
    EXPECT_EQ(desk.zormod.selection.selectionKind, 0);
    desk.press("frmSHEET", "Command2");
    EXPECT_EQ(desk.rowHeight(), height);
}

TEST(SheetView, At48TheFontBeepsAndStays) {
    ViewDesk desk;
    for (int i = 0; i < 12 && desk.world.beeper.count == 0; ++i) {
        desk.press("frmSHEET", "Command1");
    }
    EXPECT_EQ(desk.world.beeper.count, 1);
    EXPECT_EQ(desk.sheet("Picture1")->font().pixelSize(), fontPixels(48));
    EXPECT_EQ(desk.sheet("LblMUSK")->font().pixelSize(), fontPixels(48));
    EXPECT_GE(desk.zormod.position.windowRows, 2);
}

TEST(SheetView, AClickPicksTheCellAndTheInputBoxKeepsTheFocus) {
    ViewDesk desk;
    desk.clickCell(4, 2);
    EXPECT_EQ(desk.place(), std::pair(4, 2));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.spoken(), ElementsAre(HasSubstr("42")));
}

TEST(SheetView, AClickCommitsWhatIsTyped) {
    ViewDesk desk;
    desk.key(plainKey(Key::right));
    desk.keys.type(u"new");
    desk.clickCell(3, 1);
    EXPECT_EQ(desk.place(), std::pair(3, 1));
    EXPECT_EQ(desk.text("txtinputbox"), "");
    EXPECT_EQ(utf8(getRecordCell(desk.zormod, 1, 1)), "new       ");
}

TEST(SheetView, AClickBehindTheLastRecordBeeps) {
    ViewDesk desk;
    desk.key(ctrlKey(Key::down));
    desk.key(plainKey(Key::down));
    ASSERT_EQ(desk.place().first, 41);
    const int row = currentRow(desk.zormod);
    desk.clickCell(row + 1, 0);
    EXPECT_EQ(desk.place().first, 41);
    EXPECT_EQ(desk.world.beeper.count, 1);
}

TEST(SheetView, TheCurrentCellIsAlwaysInView) {
    ViewDesk desk;
    const auto echoIsInView = [&] {
        const QWidget* echo = desk.sheet("Picture2");
        return echo->x() >= -EchoCell::frame && echo->x() < desk.sheet("Picture1")->width() - 20 && echo->y() >= -EchoCell::frame &&
               echo->geometry().bottom() <= desk.sheet("Picture1")->height() + EchoCell::frame;
    };
    for (int i = 0; i < 4; ++i) {
        desk.key(plainKey(Key::right));
        EXPECT_TRUE(echoIsInView()) << i;
    }
    EXPECT_EQ(desk.place().second, 4);
    desk.key(ctrlKey(Key::left));
    EXPECT_TRUE(echoIsInView());
    desk.key(ctrlKey(Key::down));
    EXPECT_TRUE(echoIsInView());
}

TEST(SheetView, ARightDragMovesTheSheetWithinTheView) {
    ViewDesk desk;
    QWidget* picture = desk.sheet("Picture1");
    const int before = desk.sheet("Picture2")->x();
    QTest::mousePress(picture, Qt::RightButton, {}, QPoint(300, 100));
    QMouseEvent drag(QEvent::MouseMove, QPointF(180, 100), picture->mapToGlobal(QPointF(180, 100)), Qt::NoButton,
                     Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(picture, &drag);
    QTest::mouseRelease(picture, Qt::RightButton, {}, QPoint(180, 100));
    EXPECT_EQ(desk.sheet("Picture2")->x(), before - 120);
    EXPECT_EQ(desk.place(), std::pair(1, 0));
}

TEST(SheetView, AKeyOnTheSheetGoesBackToTheInputBox) {
    ViewDesk desk;
    desk.press("frmSHEET", "Command1");
    EXPECT_EQ(desk.focus(), "Command1");
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_EQ(desk.place(), std::pair(1, 0));
}

TEST(SheetView, CtrlShiftAOnTheSheetSaysTheSheetsText) {
    ViewDesk desk;
    QTest::mouseClick(desk.sheet("Picture3"), Qt::LeftButton);
    desk.settle();
    ASSERT_EQ(desk.focus(), "frmSHEET");
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)),
                ElementsAre("ﾃﾞｰﾀ入力ボックスの下にあるｽﾌﾟﾚｯﾄﾞｼｰﾄにﾌｫｰｶｽがあります。"));
    EXPECT_EQ(desk.focus(), "frmSHEET");
}

TEST(SheetView, MasksCoverTheirCellsInTheirColours) {
    ViewDesk desk;
    View& view = *desk.form.views()[0];
    EXPECT_TRUE(desk.sheet("LblMUSK")->isHidden());
    view.paintMask(MaskKind::wholes, {2, 3, 1, 2});
    view.paintMask(MaskKind::target, {5, 99, 0, 0});
    QWidget* mask = desk.sheet("LblMUSK");
    EXPECT_EQ(mask->y(), desk.rowHeight());
    EXPECT_EQ(mask->height(), 2 * desk.rowHeight());
    EXPECT_EQ(mask->grab().toImage().pixelColor(mask->width() / 2, 1), QColor(Qt::red));
    EXPECT_EQ(desk.sheet("LblPMUSK")->grab().toImage().pixelColor(2, 1), QColor(Qt::green));
    view.paintMask(MaskKind::block, {2, 3, 1, 2});
    EXPECT_EQ(mask->grab().toImage().pixelColor(mask->width() / 2, 1), QColor(0xFF, 0xC0, 0xC0));
    desk.form.hideMask();
    EXPECT_TRUE(mask->isHidden());
    EXPECT_TRUE(desk.sheet("LblPMUSK")->isHidden());
}

TEST(SheetView, AMaskOutsideTheWindowIsNotSeen) {
    ViewDesk desk;
    desk.form.views()[0]->paintMask(MaskKind::wholes, {200, 300, 0, 1});
    EXPECT_TRUE(desk.sheet("LblMUSK")->isHidden());
}

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
