// The standard view as a sighted helper sees and clicks them.

#include "edit/font_sizes.h"
#include "edit/forms/views.h"
#include "sheet/cell.h"
#include "sheet/record_window.h"
#include "support/qt/view_desk.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

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

TEST(SheetView, WhatIsTypedGoesAlongWhenTheViewIsSwitched) {
    ViewDesk desk;
    desk.key(plainKey(Key::right));
    const QImage cell = desk.image("Picture2");
    desk.keys.type(u"abc");
    const QImage typed = desk.image("Picture2");
    ASSERT_NE(typed, cell);
    desk.press("frmSHEET", "Command3");
    desk.key(plainKey(Key::escape)); // the box is empty again
    desk.press("frmKOJIND", "Command1");
    desk.keys.type(u"abc");
    desk.press("frmGrid", "Command1");
    EXPECT_EQ(desk.image("Picture2"), typed);
    desk.press("frmSHEET", "Command3");
    desk.key(plainKey(Key::escape));
    desk.press("frmKOJIND", "Command1");
    desk.press("frmGrid", "Command1");
    EXPECT_EQ(desk.image("Picture2"), cell);
}

TEST(SheetView, TheKeypadsCodeOfTheDescriptionStaysInTheViewToo) {
    for (const KeyStroke& stroke : {ctrlShiftKey(Key::a), ctrlShiftKey(Key::keypad1)}) {
        ViewDesk desk;
        QWidget* view = desk.part("frmSHEET");
        view->setFocus();
        ASSERT_EQ(desk.focus(), "frmSHEET");
        EXPECT_EQ(desk.spokenBy(stroke).size(), 1U);
        EXPECT_EQ(desk.focus(), "frmSHEET");
    }
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
        return echo->x() >= -EchoCell::frame && echo->x() < desk.sheet("Picture1")->width() - 20 &&
               echo->y() >= -EchoCell::frame &&
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

TEST(SheetView, ARedrawTakesTheFocusBackToTheInputBoxUnlessATaskIsGoingOn) {
    for (const TextView word : {u"", u"srch"}) {
        ViewDesk desk;
        desk.part("frmSHEET")->setFocus();
        ASSERT_EQ(desk.focus(), "frmSHEET");
        desk.zormod.taskWord = Text(word);
        desk.form.redrawView();
        desk.settle();
        EXPECT_EQ(desk.focus(), word.empty() ? "txtinputbox" : "frmSHEET");
    }
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
