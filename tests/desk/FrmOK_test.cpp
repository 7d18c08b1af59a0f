#include "support/qt/message_desk.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(FrmOK, SaysItsTextAfterTheInhibitTimeAndClosesWithEnter) {
    MessageDesk desk;
    desk.zormod.speech.lastSpokenTime = desk.world.clock.now;
    desk.inNextModal([&] {
        EXPECT_THAT(desk.spoken(), ElementsAre("ファイルがありません。。OKならCRを叩いてください。"));
        EXPECT_EQ(desk.title(), "確認");
        EXPECT_EQ(desk.focus(), "Command1");
        expectNamed(desk, {u"Label1", u"Command1"});
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"ファイルがありません", u"確認"); });
    EXPECT_GE(desk.world.clock.slept, desk.zormod.speech.inhibitSeconds);
}

TEST(FrmOK, WithSpeechOffItUsesNeitherClipboardNorTime) {
    MessageDesk desk;
    desk.zormod.speech.speechMode = 0;
    desk.inNextModal([&] {
        desk.keys.press(ctrlShiftKey(Key::a));
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"a", u"b"); });
    EXPECT_THAT(desk.world.clipboard.written, IsEmpty());
    EXPECT_EQ(desk.world.clipboard.reads, 0);
    EXPECT_EQ(desk.world.clock.slept, 0);
}

TEST(FrmOK, DescribesItselfAndItsButtonOnRequest) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.spoken();
        desk.world.later();
        desk.keys.press(ctrlShiftKey(Key::a));
        EXPECT_THAT(desk.spoken(), ElementsAre("題。本文。okならCRを叩いてください。"));
        for (const KeyStroke& stroke : {shiftKey(Key::pageDown), ctrlShiftKey(Key::s)}) {
            desk.world.later();
            desk.keys.press(stroke);
            EXPECT_THAT(desk.spoken(), ElementsAre("本文､OK(CR)コマンドﾎﾞﾀﾝ"));
        }
        desk.keys.press(plainKey(Key::space));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"本文", u"題"); });
}

TEST(FrmOK, TheSheetCanBeReadInIt) {
    MessageDesk desk;
    desk.world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
    desk.zormod.position.curItem = 1;
    desk.inNextModal([&] {
        desk.spoken();
        desk.world.later();
        desk.keys.press(altKey(Key::n));
        EXPECT_THAT(desk.spoken(), ElementsAre("山田      。ギョウ1 項目1氏名"));
        desk.world.later();
        desk.keys.press(altKey(Key::m));
        EXPECT_THAT(desk.spoken(), ElementsAre("ギョウ1 1   山田"));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"本文", u"題"); });
}

TEST(FrmOK, ItHasNothingToCopySoThatTheUsersTextIsKept) {
    MessageDesk desk;
    desk.world.clipboard.foreign(u"mine");
    desk.inNextModal([&] {
        desk.keys.press(ctrlKey(Key::insert));
        EXPECT_EQ(desk.zormod.speech.userClipboard, u"mine");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"本文", u"題"); });
}

TEST(FrmOK, WithoutATitleItTakesThatOfTheActiveForm) {
    MessageDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "Owner");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"a", u""); });
}

TEST(FrmOK, GivesTheFocusBackWithoutAWordAndWithoutAKeyUp) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.spoken();
        desk.world.later();
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"a", u"b"); });
    EXPECT_EQ(desk.focus(), "box");
    EXPECT_EQ(desk.title(), "Owner");
    EXPECT_EQ(desk.focusRules, 0);
    EXPECT_EQ(desk.ups, 0);
    EXPECT_THAT(desk.spoken(), IsEmpty());
    desk.keys.press(plainKey(Key::home));
    EXPECT_EQ(desk.ups, 1) << "the next key is heard again";
}

TEST(FrmOK, TheKeyThatOpenedItIsMuteUntilItIsLetGo) {
    MessageDesk desk;
    desk.box->keys().onKeyDown([&](const KeyStroke& stroke) {
        if (stroke == plainKey(Key::enter)) {
            desk.zormod.platform.dialogs.showMessage(u"a", u"b");
        }
        return KeyOutcome::goesOn;
    });
    bool closedByRepeats = true;
    desk.inNextModal([&] {
        desk.keys.repeat(plainKey(Key::enter));
        desk.keys.repeat(plainKey(Key::enter), RepeatStyle::pairs);
        desk.keys.up(plainKey(Key::enter));
        closedByRepeats = desk.title() != "b";
        desk.keys.press(plainKey(Key::enter));
    });
    desk.keys.down(plainKey(Key::enter));
    desk.settle();
    EXPECT_FALSE(closedByRepeats);
    EXPECT_EQ(desk.ups, 0);
}

TEST(FrmOK, TheAcceleratorThatOpenedItGivesNoKeyUp) {
    MessageDesk desk;
    auto* action = new QAction(&desk.form);
    action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    desk.form.addAction(action);
    QObject::connect(action, &QAction::triggered, &desk.form,
                     desk.guard.wrap([&] { desk.zormod.platform.dialogs.showMessage(u"a", u"b"); }));
    desk.inNextModal([&] {
        desk.keys.up(ctrlKey(Key::k));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.keys.down(ctrlKey(Key::k));
    desk.settle();
    EXPECT_EQ(desk.title(), "Owner");
    EXPECT_EQ(desk.ups, 0);
}

TEST(FrmOK, TheKeyThatClosedItDoesNothingWhileItIsStillHeld) {
    MessageDesk desk;
    int presses = 0;
    desk.box->keys().onKeyPress([&](char16_t) {
        ++presses;
        return KeyOutcome::goesOn;
    });
    desk.inNextModal([&] { desk.keys.down(plainKey(Key::enter)); });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"a", u"b"); });
    desk.keys.repeat(plainKey(Key::enter));
    desk.keys.up(plainKey(Key::enter));
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(desk.ups, 0);
}

TEST(FrmOK, ALongTextScrollsAndTheWindowFitsTheScreen) {
    MessageDesk desk;
    Text longText;
    for (int line = 0; line < 300; ++line) {
        longText += u"長い行です。長い行です。長い行です。長い行です。長い行です。長い行です。長い行です。\r";
    }
    desk.inNextModal([&] {
        const QSize free = QApplication::activeWindow()->screen()->availableSize();
        EXPECT_LE(QApplication::activeWindow()->frameGeometry().height(), free.height());
        EXPECT_LE(QApplication::activeWindow()->frameGeometry().width(), free.width());
        auto* area = QApplication::activeWindow()->findChild<QAbstractScrollArea*>();
        const int before = area->verticalScrollBar()->value();
        desk.keys.press(plainKey(Key::pageDown));
        EXPECT_GT(area->verticalScrollBar()->value(), before);
        EXPECT_EQ(desk.focus(), "Command1");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(longText, u"b"); });
}

TEST(FrmOK, TextIsNeverMarkupAndACarriageReturnIsALineBreak) {
    MessageDesk desk;
    desk.inNextModal([&] {
        const auto* label = static_cast<QLabel*>(desk.control(u"Label1"));
        EXPECT_EQ(label->text().toStdString(), "<b>a</b>\nSum=1\nx");
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.showMessage(u"<b>a</b>\rSum=1\r\nx", u"b"); });
}

TEST(FrmOK, TwoMessagesInARowBothSpeakAndGiveTheFocusBack) {
    MessageDesk desk;
    std::vector<std::string> heard;
    for (int i = 0; i < 2; ++i) {
        desk.inNextModal([&] {
            heard.push_back(desk.spoken().at(0));
            desk.keys.press(plainKey(Key::enter));
        });
    }
    desk.asking([&] {
        desk.zormod.platform.dialogs.showMessage(u"one", u"b");
        desk.zormod.platform.dialogs.showMessage(u"two", u"b");
    });
    EXPECT_THAT(heard, ElementsAre("one。。OKならCRを叩いてください。", "two。。OKならCRを叩いてください。"));
    EXPECT_EQ(desk.focus(), "box");
}
