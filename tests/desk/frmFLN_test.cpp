// The change of an item's width and alignment from the keyboard alone.

#include "support/qt/edit_desk.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Said = std::vector<std::string>;

constexpr const char* startText =
    "の項目幅操作中です。ｺﾝﾄﾛｰﾙｽﾍﾟｰｽで現在の項目幅縮小、ｼﾌﾄｽﾍﾟｰｽで拡大、CRで確定、エスケープで元通りです。";

/// The edit screen with two records, the name being the current item, listening in mode 1.
struct WidthDesk : EditDesk {
    WidthDesk() {
        openTable({{u"ID", u"L", 4}, {u"氏名", u"L", 6}, {u"年齢", u"R", 3}}, {{u"1", u"山田", u"40"}, {u"2", u"ab", u"7"}});
        key(plainKey(Key::right));
        zormod.speech.speechMode = 1;
        before = world.bytesOf("t.txt");
    }
    /// Presses `stroke` in the input box and works the form that comes up, which `script` must close. The texts said
    /// until it had said its opening text.
    Said withForm(const KeyStroke& stroke, std::function<void()> script) {
        Said opening;
        inNextModal([&] {
            EXPECT_EQ(title(), "項目幅の変更");
            EXPECT_EQ(focus(), "Text1");
            opening = spoken();
            script();
        });
        spoken();
        key(stroke);
        waitForScript();
        return opening;
    }
    /// The form doesn't stop its caller, so its script has its turn only now.
    void waitForScript() {
        for (int i = 0; i < 4; ++i) {
            settle();
        }
    }
    std::string row(int record, std::size_t count) {
        return world.bytesOf("t.txt").substr(static_cast<std::size_t>(record - 1) * 256, count);
    }
    void expectOver() {
        EXPECT_FALSE(formTable.isLoaded(u"frmFLN"));
        EXPECT_EQ(utf8(zormod.taskWord), "");
        EXPECT_EQ(QApplication::activeWindow(), &form);
        EXPECT_EQ(focus(), "txtinputbox");
    }
    /// Goes by Tab to a box of the panel.
    void tabTo(const std::string& name) {
        for (int i = 0; i < 10 && focus() != name; ++i) {
            key(plainKey(Key::tab));
        }
        EXPECT_EQ(focus(), name);
    }

    std::string before;
};

} // namespace

TEST(frmFLN, ShiftSpaceWidensAtOnceThenStepByStepAndEnterWritesTheTable) {
    WidthDesk desk;
    const Said opening = desk.withForm(shiftKey(Key::space), [&] {
        EXPECT_EQ(desk.text("txtWIDTH"), "7");
        EXPECT_EQ(desk.spokenBy(shiftKey(Key::space)), Said{"Width8"});
        EXPECT_EQ(desk.spokenBy(ctrlKey(Key::space)), Said{"Width7"});
        EXPECT_EQ(desk.spokenBy(shiftKey(Key::space)), Said{"Width8"});
        EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::a)), Said{std::string("項目幅の変更。現在項目1") + startText});
        EXPECT_EQ(desk.world.bytesOf("t.txt"), desk.before);
        const Said end = desk.spokenBy(plainKey(Key::enter));
        EXPECT_EQ(end, (Said{"データ書き換え中  中止不可", "書き換え終了"}));
    });
    EXPECT_EQ(opening, (Said{"Width7", std::string("現在項目1") + startText}));
    EXPECT_EQ(desk.row(2, 17), "2   ab        7\r\n");
    desk.expectOver();
    EXPECT_EQ(desk.text("txtWIDTH"), "8");
    EXPECT_NE(desk.world.bytesOf("kt.txt").find("2001 ' 8"), std::string::npos);
}

TEST(frmFLN, EscGoesBackAndDoesNotEndTheProgram) {
    WidthDesk desk;
    const std::string items = desk.world.bytesOf("kt.txt");
    desk.withForm(ctrlKey(Key::space), [&] {
        EXPECT_EQ(desk.text("txtWIDTH"), "5");
        desk.key(plainKey(Key::escape));
    });
    desk.expectOver();
    EXPECT_FALSE(desk.endStatus.has_value());
    EXPECT_EQ(desk.text("txtWIDTH"), "6");
    EXPECT_EQ(desk.world.bytesOf("t.txt"), desk.before);
    EXPECT_EQ(desk.world.bytesOf("kt.txt"), items);
}

TEST(frmFLN, TheCloseBoxGivesUp) {
    WidthDesk desk;
    desk.withForm(shiftKey(Key::space), [&] {
        QApplication::activeWindow()->close();
        desk.settle();
    });
    desk.expectOver();
    EXPECT_EQ(desk.text("txtWIDTH"), "6");
}

TEST(frmFLN, EnterInTheWidthBoxOpensItAndTheBoxShowsTheRealWidth) {
    WidthDesk desk;
    desk.tabTo("txtWIDTH");
    desk.keys.type(u"9");
    desk.withForm(plainKey(Key::enter), [&] {
        EXPECT_EQ(desk.text("txtWIDTH"), "6");
        // Enter, held a little long, would apply the change.
        EXPECT_EQ(utf8(desk.zormod.taskWord), "chfln");
        desk.key(plainKey(Key::escape));
    });
    desk.expectOver();
}

TEST(frmFLN, AClickOnTheWidthLabelOpensIt) {
    WidthDesk desk;
    bool came = false;
    desk.inNextModal([&] {
        came = desk.title() == "項目幅の変更";
        desk.key(plainKey(Key::escape));
    });
    QTest::mouseClick(desk.part("lblWIDTH"), Qt::LeftButton);
    desk.waitForScript();
    EXPECT_TRUE(came);
}

TEST(frmFLN, ItsButtonsSayThemselvesAndGiveTheBoxTheFocusBack) {
    WidthDesk desk;
    desk.withForm(shiftKey(Key::space), [&] {
        EXPECT_EQ(desk.spokenBy(ctrlShiftKey(Key::s)), Said{"項目幅操作テキストボックス"});
        EXPECT_EQ(desk.spokenBy(plainKey(Key::tab)), Said{"項目幅広げる(shift+ｽﾍﾟｰｽ)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"});
        EXPECT_EQ(desk.spokenBy(plainKey(Key::enter)), Said{"Width8"});
        EXPECT_EQ(desk.focus(), "Text1");
        Said captions;
        for (int i = 0; i < 6; ++i) {
            const Said said = desk.spokenBy(plainKey(Key::tab));
            captions.insert(captions.end(), said.begin(), said.end());
        }
        EXPECT_EQ(captions,
                  (Said{"項目幅広げる(shift+ｽﾍﾟｰｽ)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ", "項目幅せばめる(ctrl+ｽﾍﾟｰｽ)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ",
                        "現ﾌｧｲﾙ読込/最近の項目挿入操作時項目幅に戻す､ｺﾏﾝﾄﾞﾎﾞﾀﾝ", "確定(CR)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ", "中止(ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ",
                        "今の変更作業初期状態に戻す､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"}));
        desk.key(plainKey(Key::enter)); // Command6
        EXPECT_EQ(desk.text("txtWIDTH"), "6");
        EXPECT_EQ(utf8(desk.zormod.taskWord), "chfln");
        desk.key(plainKey(Key::escape));
    });
    desk.expectOver();
}

TEST(frmFLN, TheButtonsApplyAndGiveUp) {
    WidthDesk desk;
    const auto pressButton = [&](const std::string& name) {
        for (int i = 0; i < 7 && desk.focus() != name; ++i) {
            desk.key(plainKey(Key::tab));
        }
        EXPECT_EQ(desk.focus(), name);
        desk.key(plainKey(Key::enter));
    };
    desk.withForm(shiftKey(Key::space), [&] { pressButton("Command5"); });
    desk.expectOver();
    EXPECT_EQ(desk.text("txtWIDTH"), "6");
    EXPECT_EQ(desk.world.bytesOf("t.txt"), desk.before);
    desk.withForm(shiftKey(Key::space), [&] { pressButton("Command4"); });
    desk.expectOver();
    EXPECT_EQ(desk.row(2, 16), "2   ab       7\r\n");
    desk.withForm(ctrlKey(Key::space), [&] {
        pressButton("Command2");
        EXPECT_EQ(desk.text("txtWIDTH"), "5");
        desk.key(plainKey(Key::escape));
    });
}

TEST(frmFLN, TheKeyThatOpenedItDoesNothingMoreWhileHeld) {
    WidthDesk desk;
    desk.tabTo("txtWIDTH");
    bool came = false;
    desk.inNextModal([&] {
        came = true;
        desk.keys.repeat(plainKey(Key::enter));
        desk.keys.repeat(plainKey(Key::enter), RepeatStyle::pairs);
        EXPECT_EQ(utf8(desk.zormod.taskWord), "chfln");
        EXPECT_TRUE(desk.formTable.isLoaded(u"frmFLN"));
        desk.keys.up(plainKey(Key::enter));
        desk.key(plainKey(Key::escape));
    });
    desk.keys.down(plainKey(Key::enter));
    desk.waitForScript();
    EXPECT_TRUE(came);
}

TEST(frmFLN, WhatWasAppliedIsTakenBackToTheItemFileByItsButton) {
    WidthDesk desk;
    const std::string items = desk.world.bytesOf("kt.txt");
    desk.withForm(shiftKey(Key::space), [&] { desk.key(plainKey(Key::enter)); });
    EXPECT_NE(desk.world.bytesOf("kt.txt"), items);
    desk.withForm(shiftKey(Key::space), [&] {
        for (int i = 0; i < 3; ++i) {
            desk.key(plainKey(Key::tab));
        }
        EXPECT_EQ(desk.focus(), "Command3");
        desk.key(plainKey(Key::enter));
        EXPECT_EQ(desk.focus(), "Text1");
        EXPECT_EQ(desk.text("txtWIDTH"), "6");
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.world.bytesOf("kt.txt"), items);
    EXPECT_EQ(desk.row(2, 15), "2   ab      7\r\n");
    desk.expectOver();
}

TEST(frmFLN, TheAlignmentIsChangedInItsBox) {
    WidthDesk desk;
    desk.guard.run([&] { desk.commands.run(u"mnuRL"); });
    desk.settle();
    EXPECT_EQ(desk.focus(), "txtLR");
    desk.keys.press(plainKey(Key::backspace));
    desk.keys.type(u"r");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.row(2, 13), "2       ab  7");
    EXPECT_EQ(desk.text("txtLR"), "R");
    desk.keys.type(u"x");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.world.beeper.count, 1);
    EXPECT_EQ(desk.text("txtLR"), "R");
}
