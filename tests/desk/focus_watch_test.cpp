#include "platform/qt/focus_watch.h"
#include "support/qt/desk.h"

#include <QLineEdit>

#include <gtest/gtest.h>

namespace {

/// A window with a box that counts the moves of the focus.
struct Watcher : QWidget {
    explicit Watcher(int& count) : moves(count), watch([this](QWidget*, QWidget*) { ++moves; }) {
        box = new QLineEdit(this);
    }
    int& moves;
    QLineEdit* box;
    FocusWatch watch;
};

} // namespace

TEST(FocusWatch, TellsOfEachMove) {
    Desk desk;
    int moves = 0;
    Watcher window(moves);
    desk.open(window);
    window.box->setFocus();
    moves = 0;
    window.box->clearFocus();
    window.box->setFocus();
    EXPECT_EQ(moves, 2);
}

TEST(FocusWatch, TellsNothingMoreToAWidgetThatIsBeingDestroyed) {
    Desk desk;
    int moves = 0;
    int seenElsewhere = 0;
    const FocusWatch elsewhere([&](QWidget*, QWidget*) { ++seenElsewhere; });
    auto window = std::make_unique<Watcher>(moves);
    desk.open(*window);
    window->box->setFocus();
    moves = 0;
    seenElsewhere = 0;
    window.reset();
    EXPECT_EQ(moves, 0);
    EXPECT_GT(seenElsewhere, 0) << "the focus was not taken from it";
}
