#include "platform/qt/key_line_edit.h"

#include "support/qt/box_window.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QPointer>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

QAction* accelerator(BoxWindow& desk, const QKeySequence& keys, int& count) {
    auto* action = new QAction(desk.window.get());
    action->setShortcut(keys);
    QObject::connect(action, &QAction::triggered, [&count] { ++count; });
    desk.window->addAction(action);
    return action;
}

} // namespace

TEST(KeyLineEdit, AKeyGivesDownPressChangeAndUpInThisOrder) {
    BoxWindow desk;
    desk.keys.press(plainKey(Key::x));
    EXPECT_THAT(desk.events, ElementsAre("down", "press 120", "change >x", "up"));
    EXPECT_THAT(desk.downs, ElementsAre(plainKey(Key::x)));
    EXPECT_THAT(desk.ups, ElementsAre(plainKey(Key::x)));
}

TEST(KeyLineEdit, ControlCharactersArePressesToo) {
    BoxWindow desk;
    desk.keys.press(plainKey(Key::enter));
    desk.keys.press(plainKey(Key::escape));
    desk.keys.press(plainKey(Key::backspace));
    EXPECT_THAT(desk.events, ElementsAre("down", "press 13", "up", "down", "press 27", "up", "down", "press 8", "up"));
}

TEST(KeyLineEdit, KeysThatTypeNothingGiveNoPress) {
    BoxWindow desk;
    desk.keys.press(plainKey(Key::del));
    desk.keys.press(plainKey(Key::left));
    desk.keys.press(altKey(Key::g));
    EXPECT_THAT(desk.events, ElementsAre("down", "up", "down", "up", "down", "down", "up", "up"));
    EXPECT_EQ(desk.text(), "");
}

TEST(KeyLineEdit, ATakenKeyDownIsNeitherPressedNorTyped) {
    BoxWindow desk;
    desk.takenDown = KeyOutcome::taken;
    desk.keys.press(plainKey(Key::x));
    EXPECT_THAT(desk.events, ElementsAre("down", "up"));
    EXPECT_EQ(desk.text(), "");
}

TEST(KeyLineEdit, ATakenKeyPressIsNotTyped) {
    BoxWindow desk;
    desk.takenPress = KeyOutcome::taken;
    desk.keys.press(plainKey(Key::x));
    EXPECT_THAT(desk.events, ElementsAre("down", "press 120", "up"));
    EXPECT_EQ(desk.text(), "");
}

TEST(KeyLineEdit, AHeldKeyRepeatsDownsAndGivesOneUp) {
    for (const RepeatStyle style : {RepeatStyle::presses, RepeatStyle::pairs}) {
        BoxWindow desk;
        desk.keys.hold(plainKey(Key::left), 3, style);
        EXPECT_THAT(desk.events, ElementsAre("down", "down", "down", "down", "up"));
    }
}

TEST(KeyLineEdit, ModifierKeysAloneLeaveTheirOwnFlagOut) {
    BoxWindow desk;
    desk.keys.press(shiftKey(Key::left));
    EXPECT_THAT(desk.downs, ElementsAre(plainKey(Key::shift), shiftKey(Key::left)));
    EXPECT_THAT(desk.ups, ElementsAre(shiftKey(Key::left), plainKey(Key::shift)));
}

TEST(KeyLineEdit, DigitsOfTheKeypadAreKeysOfTheirOwn) {
    BoxWindow desk;
    desk.keys.press(plainKey(Key::keypad7));
    desk.keys.press(plainKey(Key::digit7));
    EXPECT_THAT(desk.downs, ElementsAre(plainKey(Key::keypad7), plainKey(Key::digit7)));
    EXPECT_EQ(desk.text(), "77");
}

TEST(KeyLineEdit, ADigitLetGoAfterShiftIsStillTheKeyThatWasPressed) {
    BoxWindow desk;
    desk.keys.shiftedDigitLetGoLate(2);
    ASSERT_EQ(desk.downs.size(), 2u);
    ASSERT_EQ(desk.ups.size(), 2u);
    EXPECT_EQ(desk.downs[1], shiftKey(Key::other)) << "Shift+2 types another character";
    EXPECT_EQ(desk.ups[1], shiftKey(Key::other));
}

TEST(KeyLineEdit, TabIsAKeyDownBeforeItMovesTheFocus) {
    BoxWindow desk;
    desk.keys.press(plainKey(Key::tab));
    EXPECT_THAT(desk.downs, ElementsAre(plainKey(Key::tab)));
    EXPECT_THAT(desk.ups, IsEmpty()) << "its key up belongs to the box it went to";
    EXPECT_EQ(desk.focus(), "other");
    desk.keys.press(shiftKey(Key::tab));
    EXPECT_EQ(desk.focus(), "box");
    EXPECT_THAT(desk.ups, ElementsAre(shiftKey(Key::tab), plainKey(Key::shift)));
}

TEST(KeyLineEdit, ATakenTabStays) {
    BoxWindow desk;
    desk.takenDown = KeyOutcome::taken;
    desk.keys.press(plainKey(Key::tab));
    EXPECT_EQ(desk.focus(), "box");
}

TEST(KeyLineEdit, ComingInByTabSelectsNothing) {
    BoxWindow desk;
    desk.other->setProgramText(u"abc");
    desk.keys.press(plainKey(Key::tab));
    EXPECT_EQ(desk.other->view().selectionLength, 0);
    EXPECT_EQ(desk.other->view().caret, 3);
}

TEST(KeyLineEdit, TextSetByTheProgramIsNoChangeAndPutsTheCaretBehindIt) {
    BoxWindow desk;
    desk.box->setProgramText(u"山田");
    EXPECT_THAT(desk.events, IsEmpty());
    EXPECT_EQ(desk.box->view().caret, 2);
    desk.keys.press(plainKey(Key::backspace));
    EXPECT_THAT(desk.events, ElementsAre("down", "press 8", "change 山田>山", "up"));
}

TEST(KeyLineEdit, TheViewTellsCaretAndSelection) {
    BoxWindow desk;
    desk.keys.type(u"abcd");
    desk.keys.press(plainKey(Key::left));
    desk.keys.press(shiftKey(Key::left));
    desk.keys.press(shiftKey(Key::left));
    const BoxView view = desk.box->view();
    EXPECT_EQ(view.text, u"abcd");
    EXPECT_EQ(view.caret, 1);
    EXPECT_EQ(view.selectionStart, 1);
    EXPECT_EQ(view.selectionLength, 2);
}

TEST(KeyLineEdit, AcceleratorsWinOverEditingKeysAndOnlyTheirKeyUpIsSeen) {
    BoxWindow desk;
    desk.box->setProgramText(u"abc");
    for (const Key key : {Key::a, Key::c, Key::h, Key::i, Key::k, Key::u, Key::v, Key::x, Key::y, Key::z}) {
        int count = 0;
        const int letter = static_cast<int>(key) - static_cast<int>(Key::a);
        const std::unique_ptr<QAction> action(
            accelerator(desk, QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_A + letter)), count));
        desk.forget();
        desk.keys.press(ctrlKey(key));
        EXPECT_EQ(count, 1) << "Ctrl and letter " << letter;
        EXPECT_THAT(desk.downs, ElementsAre(plainKey(Key::control)));
        EXPECT_THAT(desk.ups, ElementsAre(ctrlKey(key), plainKey(Key::control)));
    }
    EXPECT_EQ(desk.text(), "abc");
}

TEST(KeyLineEdit, FunctionKeysAndShiftedInsertGoToAccelerators) {
    BoxWindow desk;
    int pressed = 0;
    accelerator(desk, QKeySequence(Qt::Key_F3), pressed);
    accelerator(desk, QKeySequence(Qt::SHIFT | Qt::Key_F6), pressed);
    desk.keys.press(plainKey(Key::f3));
    desk.keys.press(shiftKey(Key::f6));
    EXPECT_EQ(pressed, 2);
}

TEST(KeyLineEdit, AltAndALetterOpensTheMenuAndTypesNothing) {
    BoxWindow desk;
    QMenu* menu = desk.window->menuBar()->addMenu(QStringLiteral("&File"));
    menu->addAction(QStringLiteral("End"));
    desk.settle();
    desk.keys.down(altKey(Key::f));
    EXPECT_EQ(QApplication::activePopupWidget(), menu);
    desk.keys.press(plainKey(Key::escape));
    EXPECT_EQ(desk.text(), "");
}

TEST(KeyLineEdit, AFailingHandlerUsesTheKeyUpAndIsReportedOnce) {
    BoxWindow desk;
    desk.box->keys().onKeyDown([](const KeyStroke& stroke) -> KeyOutcome {
        if (stroke.key == Key::x) {
            throw RuntimeFailure{FailureKind::division};
        }
        return KeyOutcome::goesOn;
    });
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), utf8(failureTitle));
        desk.keys.press(plainKey(Key::enter));
    });
    desk.keys.press(plainKey(Key::x));
    desk.keys.press(plainKey(Key::y));
    EXPECT_EQ(desk.text(), "y");
}

TEST(KeyLineEdit, AHandlerMayDeleteTheBox) {
    for (const char* where : {"down", "press", "change"}) {
        BoxWindow desk;
        const std::string place = where;
        const auto destroy = [&](const std::string& here) {
            if (here == place) {
                delete desk.box;
            }
        };
        desk.box->keys().onKeyDown([&](const KeyStroke&) {
            destroy("down");
            return KeyOutcome::goesOn;
        });
        desk.box->keys().onKeyPress([&](char16_t) {
            destroy("press");
            return KeyOutcome::goesOn;
        });
        QPointer<KeyLineEdit> box(desk.box);
        desk.box->onChange([&](const Text&, const Text&) {
            if (place == "change") {
                box->deleteLater();
            }
        });
        desk.keys.press(plainKey(Key::x));
        desk.settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(box.isNull()) << where;
    }
}
