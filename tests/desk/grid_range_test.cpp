// Ranges and their targets in the grid view, drawn and moved by keys.

#include "support/qt/range_desk.h"

#include <QTableView>

#include <gtest/gtest.h>

namespace {

const QColor green(0x00, 0xFF, 0x00);

/// The range desk in the grid view.
struct GridDesk : RangeDesk {
    GridDesk() {
        zormod.display.viewMode = 2;
        form.redrawView();
        settle();
        grid = static_cast<QTableView*>(partOf("frmGrid", "Grid1"));
    }
    /// First and last row and column of what is selected, the rows as record numbers.
    Ends selected() const {
        const QItemSelection selection = grid->selectionModel()->selection();
        if (selection.size() != 1) {
            return {};
        }
        const int first = zormod.position.windowFirst;
        return {selection[0].top() + first, selection[0].bottom() + first, selection[0].left(), selection[0].right()};
    }
    /// The ground of a cell, away from its letters and lines.
    QColor ground(int record, int item) {
        const QRect cell = grid->visualRect(grid->model()->index(record - zormod.position.windowFirst, item));
        return grid->viewport()->grab().toImage().pixelColor(cell.right() - 4, cell.bottom() - 4);
    }
    QColor selectedGround() const { return grid->palette().color(QPalette::Highlight); }
    QTableView* grid;
};

} // namespace

TEST(GridRange, IsTheGridsOwnSelection) {
    GridDesk desk;
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.selected(), (Ends{1, 1, 1, 1}));
    desk.key(shiftKey(Key::down));
    desk.key(plainKey(Key::down));
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.selected(), (Ends{1, 2, 1, 2}));
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.selected(), (Ends{1, 2, 1, 2}));
    desk.form.redrawView();
    desk.form.redrawCurrentRow();
    EXPECT_EQ(desk.selected(), (Ends{1, 2, 1, 2}));
    desk.key(plainKey(Key::x));
    EXPECT_EQ(desk.selected(), (Ends{2, 2, 2, 2}));
}

TEST(GridRange, FollowsTheWindow) {
    GridDesk desk;
    desk.key(altKey(Key::down));
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.selected(), (Ends{1, 2, 0, 4}));
    desk.key(ctrlKey(Key::down));
    EXPECT_GT(desk.zormod.position.windowFirst, 1);
    EXPECT_EQ(desk.selected(), (Ends{desk.zormod.position.windowFirst, 40, 0, 4}));
    desk.key(plainKey(Key::escape));
    EXPECT_EQ(desk.selected(), (Ends{40, 40, 0, 0}));
}

TEST(GridRange, OfWholeItemsHasAllRowsOfTheFileAndNoneBehindIt) {
    GridDesk desk;
    desk.key(altKey(Key::right));
    desk.key(ctrlKey(Key::down));
    const int lastShown = std::min(40, desk.zormod.position.windowFirst + desk.zormod.position.windowRows - 1);
    EXPECT_EQ(desk.selected(), (Ends{desk.zormod.position.windowFirst, lastShown, 0, 0}));
}

TEST(GridRange, AClickWhileDrawingLeavesItAsItIs) {
    GridDesk desk;
    desk.key(altKey(Key::down));
    QTest::mouseClick(desk.grid->viewport(), Qt::LeftButton, {},
                      desk.grid->visualRect(desk.grid->model()->index(5, 1)).center());
    desk.settle();
    EXPECT_EQ(desk.selected(), (Ends{1, 1, 0, 4}));
    EXPECT_TRUE(desk.isDrawing());
}

TEST(GridRange, ASwitchOfTheViewCancelsTheDrawing) {
    GridDesk desk;
    desk.key(altKey(Key::down));
    desk.press("frmGrid", "Command1");
    EXPECT_FALSE(desk.isDrawing());
    EXPECT_EQ(desk.range(), (Ends{0, 0, 0, 0, 0}));
    EXPECT_EQ(desk.zormod.display.viewMode, 0);
}

TEST(GridRange, TheTargetOfACopyIsGreenAndLiesOverTheRange) {
    GridDesk desk;
    desk.key(plainKey(Key::right));
    desk.fix({shiftKey(Key::down), plainKey(Key::down), plainKey(Key::right)});
    desk.key(plainKey(Key::down));
    ASSERT_EQ(utf8(desk.zormod.taskWord), "copy");
    EXPECT_EQ(desk.ground(1, 1), green) << "the target starts on the range";
    EXPECT_EQ(desk.ground(2, 2), green);
    EXPECT_NE(desk.ground(3, 1), green);
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.ground(1, 1), desk.selectedGround());
    EXPECT_EQ(desk.ground(2, 1), green);
    EXPECT_EQ(desk.ground(3, 2), green);
    EXPECT_EQ(desk.selected(), (Ends{1, 2, 1, 2}));
    desk.key(plainKey(Key::escape));
    EXPECT_NE(desk.ground(3, 2), green);
    EXPECT_EQ(desk.selected(), (Ends{2, 2, 1, 1}));
}

TEST(GridRange, TheTargetOfAMoveIsAColumnOrARow) {
    GridDesk items;
    items.fix({altKey(Key::right)});
    items.key(plainKey(Key::right));
    ASSERT_EQ(utf8(items.zormod.taskWord), "moveitem");
    EXPECT_EQ(items.ground(1, 2), green);
    EXPECT_EQ(items.ground(9, 2), green);
    EXPECT_NE(items.ground(1, 1), green);
    items.key(plainKey(Key::escape));
    GridDesk records;
    records.fix({altKey(Key::down)});
    records.key(plainKey(Key::down));
    ASSERT_EQ(utf8(records.zormod.taskWord), "moverecord");
    EXPECT_EQ(records.ground(3, 0), green);
    EXPECT_EQ(records.ground(3, 2), green);
    EXPECT_NE(records.ground(2, 0), green);
    records.key(ctrlKey(Key::down));
    EXPECT_EQ(records.ground(40, 2), green) << "it goes along with the window";
    records.key(plainKey(Key::escape));
}

TEST(GridRange, LettersOnTheTargetAreBlackInEveryPalette) {
    GridDesk desk;
    QPalette dark = desk.grid->palette();
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    desk.grid->setPalette(dark);
    desk.key(plainKey(Key::right));
    desk.fix({shiftKey(Key::down)});
    desk.keysDown({plainKey(Key::down), plainKey(Key::down)});
    const QImage cell = desk.grid->viewport()->grab(desk.grid->visualRect(desk.grid->model()->index(1, 1))).toImage();
    int black = 0;
    int white = 0;
    for (int y = 0; y < cell.height() - 1; ++y) {
        for (int x = 0; x < cell.width() - 1; ++x) {
            black += cell.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
            white += cell.pixelColor(x, y) == QColor(Qt::white) ? 1 : 0;
        }
    }
    EXPECT_GT(black, 0);
    EXPECT_EQ(white, 0);
    desk.key(plainKey(Key::escape));
}
