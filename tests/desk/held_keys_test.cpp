#include "platform/qt/held_keys.h"

#include "platform/qt/key_codes.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

#include <gtest/gtest.h>

#include <vector>

namespace {

/// A widget that writes down which key events reach it.
struct Listener : QWidget {
    bool event(QEvent* event) override {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
            types.push_back(event->type());
        }
        return QWidget::event(event);
    }
    std::vector<QEvent::Type> types;
};

struct Keys {
    explicit Keys(HeldKeys::IsUp isUp = {}) : held(std::move(isUp)) {}
    bool send(QEvent::Type type, quint64 time, bool autoRepeat = false) {
        QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, 36, 0, 0, QStringLiteral("\r"), autoRepeat);
        event.setTimestamp(time);
        const auto before = listener.types.size();
        QCoreApplication::sendEvent(&listener, &event);
        return listener.types.size() > before;
    }
    HeldKeys held;
    Listener listener;
};

} // namespace

TEST(HeldKeys, AMutedKeyReachesNobodyUntilItIsLetGo) {
    Keys keys;
    EXPECT_TRUE(keys.send(QEvent::KeyPress, 100));
    keys.held.muteHeld();
    EXPECT_FALSE(keys.send(QEvent::KeyPress, 600));
    EXPECT_FALSE(keys.send(QEvent::KeyPress, 630, true));
    EXPECT_FALSE(keys.send(QEvent::KeyRelease, 640));
    EXPECT_TRUE(keys.send(QEvent::KeyPress, 700));
    EXPECT_TRUE(keys.send(QEvent::KeyRelease, 710));
}

TEST(HeldKeys, AKeyWhoseReleaseWentElsewhereIsFreshAfterAWhile) {
    Keys keys;
    keys.send(QEvent::KeyPress, 100);
    keys.held.muteHeld();
    EXPECT_TRUE(keys.send(QEvent::KeyPress, 5000));
    EXPECT_FALSE(keys.held.isRepeat());
}

TEST(HeldKeys, ASecondPressWithoutAReleaseIsARepeat) {
    Keys keys;
    keys.send(QEvent::KeyPress, 100);
    EXPECT_FALSE(keys.held.isRepeat());
    keys.send(QEvent::KeyPress, 700);
    EXPECT_TRUE(keys.held.isRepeat());
    keys.send(QEvent::KeyRelease, 710);
    keys.send(QEvent::KeyPress, 720);
    EXPECT_FALSE(keys.held.isRepeat());
}

TEST(HeldKeys, ReleasesThatOnlySayRepeatAreSwallowed) {
    Keys keys;
    keys.send(QEvent::KeyPress, 100);
    EXPECT_FALSE(keys.send(QEvent::KeyRelease, 600, true));
    EXPECT_TRUE(keys.send(QEvent::KeyPress, 600, true));
    EXPECT_TRUE(keys.held.isRepeat());
}

TEST(HeldKeys, AnOldPressThatComesByLateIsNotHeldAgain) {
    Keys keys;
    keys.send(QEvent::KeyPress, 100);
    keys.send(QEvent::KeyRelease, 110);
    keys.send(QEvent::KeyPress, 100);
    keys.send(QEvent::KeyPress, 200);
    EXPECT_FALSE(keys.held.isRepeat());
}

TEST(KeyCodes, NamesTheKeysOfTheTables) {
    EXPECT_EQ(keyOfCode(Qt::Key_A, Qt::NoModifier), Key::a);
    EXPECT_EQ(keyOfCode(Qt::Key_Z, Qt::ControlModifier), Key::z);
    EXPECT_EQ(keyOfCode(Qt::Key_9, Qt::NoModifier), Key::digit9);
    EXPECT_EQ(keyOfCode(Qt::Key_9, Qt::KeypadModifier), Key::keypad9);
    EXPECT_EQ(keyOfCode(Qt::Key_F12, Qt::ShiftModifier), Key::f12);
    EXPECT_EQ(keyOfCode(Qt::Key_Enter, Qt::KeypadModifier), Key::enter);
    EXPECT_EQ(keyOfCode(Qt::Key_End, Qt::KeypadModifier), Key::end);
    EXPECT_EQ(keyOfCode(Qt::Key_Muhenkan, Qt::NoModifier), Key::other);
}

TEST(KeyCodes, BacktabIsTabWithShift) {
    const QKeyEvent event(QEvent::KeyPress, Qt::Key_Backtab, Qt::ControlModifier);
    EXPECT_EQ(strokeOf(event), (KeyStroke{Key::tab, true, true, false}));
}

namespace {

/// Sends a press or a release and gives the stroke that its release stands for.
KeyStroke sent(Keys& keys, QEvent::Type type, int code, Qt::KeyboardModifiers modifiers, quint32 scanCode) {
    QKeyEvent event(type, code, modifiers, scanCode, 0, 0);
    QCoreApplication::sendEvent(&keys.listener, &event);
    return keys.held.releaseStroke(event);
}

} // namespace

TEST(HeldKeys, AReleaseCountsWithTheModifiersOfItsPress) {
    Keys keys;
    sent(keys, QEvent::KeyPress, Qt::Key_Alt, Qt::AltModifier, 64);
    sent(keys, QEvent::KeyPress, Qt::Key_N, Qt::AltModifier, 57);
    // Quick fingers let go of Alt first.
    EXPECT_EQ(sent(keys, QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier, 64), plainKey(Key::alt));
    EXPECT_EQ(sent(keys, QEvent::KeyRelease, Qt::Key_N, Qt::NoModifier, 57), altKey(Key::n));
    // A modifier that came after the press was meant for the next key.
    sent(keys, QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, 114);
    sent(keys, QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier, 50);
    EXPECT_EQ(sent(keys, QEvent::KeyRelease, Qt::Key_Right, Qt::ShiftModifier, 114), plainKey(Key::right));
    EXPECT_EQ(sent(keys, QEvent::KeyRelease, Qt::Key_Shift, Qt::NoModifier, 50), plainKey(Key::shift));
}

TEST(HeldKeys, AKeyThatWasLetGoBetweenTwoWindowsIsFreshInTheNext) {
    for (const bool isUp : {true, false}) {
        Keys keys([&isUp](quint32 scanCode) { return isUp && scanCode == 36; });
        keys.send(QEvent::KeyPress, 100);
        keys.held.muteHeld();
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&keys.listener, &activation);
        EXPECT_EQ(keys.send(QEvent::KeyPress, 600), isUp);
        EXPECT_EQ(keys.held.isRepeat(), !isUp);
    }
}
