#include "platform/qt/key_button.h"

#include "platform/qt/key_tap.h"
#include "support/qt/desk.h"

#include <QVBoxLayout>
#include <QWidget>

#include <gmock/gmock.h>

namespace {

struct ButtonWindow : Desk {
    ButtonWindow() {
        auto* layout = new QVBoxLayout(&window);
        button = new KeyButton(QStringLiteral("Go"), context);
        layout->addWidget(button);
        button->onClick([this] { ++clicks; });
        open(window);
    }
    QWidget window;
    KeyButton* button;
    int clicks = 0;
};

} // namespace

TEST(KeyButton, EnterAndSpacePressItAtKeyDown) {
    ButtonWindow desk;
    desk.keys.down(plainKey(Key::enter));
    EXPECT_EQ(desk.clicks, 1);
    desk.keys.up(plainKey(Key::enter));
    desk.keys.down(plainKey(Key::space));
    EXPECT_EQ(desk.clicks, 2);
    desk.keys.up(plainKey(Key::space));
    EXPECT_EQ(desk.clicks, 2);
}

TEST(KeyButton, AHeldKeyPressesItOnce) {
    ButtonWindow desk;
    desk.keys.hold(plainKey(Key::space), 5);
    desk.keys.hold(plainKey(Key::enter), 5, RepeatStyle::pairs);
    EXPECT_EQ(desk.clicks, 2);
}

TEST(KeyButton, ATakenKeyDoesNotPressIt) {
    ButtonWindow desk;
    desk.button->keys().onKeyDown([](const KeyStroke&) { return KeyOutcome::taken; });
    desk.keys.press(plainKey(Key::enter));
    EXPECT_EQ(desk.clicks, 0);
}

TEST(KeyButton, HasNoInputMethod) {
    ButtonWindow desk;
    EXPECT_FALSE(desk.button->testAttribute(Qt::WA_InputMethodEnabled));
}

TEST(KeyButton, ItsAccessKeyGivesItTheFocusAndPressesItAtOnce) {
    ButtonWindow desk;
    auto* other = new KeyButton(QStringLiteral("Folder(&F)"), desk.context);
    int presses = 0;
    other->onClick([&] { ++presses; });
    desk.window.layout()->addWidget(other);
    desk.settle();
    desk.button->setFocus();
    desk.keys.down(altKey(Key::f));
    EXPECT_EQ(presses, 1);
    EXPECT_TRUE(other->hasFocus());
    desk.keys.up(altKey(Key::f));
    desk.settle();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(desk.clicks, 0);
}
