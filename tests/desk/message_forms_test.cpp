#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "support/qt/desk.h"
#include "voice/forms/SpokenForm.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWidget>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// A form of the program with one box, above which the message forms come up.
struct MessageDesk : Desk {
    MessageDesk() {
        form.setWindowTitle(QStringLiteral("Owner"));
        auto* layout = new QVBoxLayout(&form);
        box = new KeyLineEdit(context);
        layout->addWidget(box);
        voice = new SpokenForm(form, context, {.opening = [] { return Text(); }});
        voice->add(*box, u"box", {.label = u"ﾃｷｽﾄﾎﾞｯｸｽ", .onFocus = [this] { ++focusRules; }});
        box->keys().onKeyUp([this](const KeyStroke&) { ++ups; });
        box->setFocus();
        open(form);
        focusRules = 0;
        zormod.speech.speechMode = 2;
    }
    /// Runs `ask` inside the guard, as handlers do.
    void asking(const std::function<void()>& ask) {
        EXPECT_TRUE(guard.run(ask));
        settle();
    }

    QWidget form;
    KeyLineEdit* box;
    SpokenForm* voice;
    int focusRules = 0;
    int ups = 0;
};

void expectNamed(const Desk& desk, const std::vector<const char16_t*>& controls) {
    for (const char16_t* name : controls) {
        EXPECT_NE(desk.control(name)->accessibleName(), QString()) << QString::fromUtf16(name).toStdString();
        EXPECT_TRUE(desk.control(name)->isVisible());
    }
}

} // namespace

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

TEST(frmOKCAN, SaysItsTextAndAnswersByItsButtons) {
    MessageDesk desk;
    Answer answer = Answer::yes;
    const auto ask = [&] { answer = desk.zormod.platform.dialogs.askOkCancel(u"並べ替えます", u"全記録の並べ替え"); };
    desk.inNextModal([&] {
        EXPECT_THAT(desk.spoken(), ElementsAre("並べ替えます"));
        EXPECT_EQ(desk.title(), "全記録の並べ替え");
        expectNamed(desk, {u"Label1", u"Command1", u"Command2"});
        EXPECT_EQ(desk.focus(), "Command1");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking(ask);
    EXPECT_EQ(answer, Answer::ok);
    EXPECT_EQ(desk.zormod.results.msgAnswer, 1);

    desk.inNextModal([&] {
        desk.world.later();
        desk.spoken();
        desk.keys.press(plainKey(Key::tab));
        EXPECT_EQ(desk.focus(), "Command2");
        EXPECT_THAT(desk.spoken(), ElementsAre("キャンセルコマンドボタン"));
        desk.world.later();
        desk.keys.press(shiftKey(Key::tab));
        EXPECT_THAT(desk.spoken(), Contains("OKコマンドボタン"));
        desk.keys.press(plainKey(Key::tab));
        desk.keys.press(plainKey(Key::space));
    });
    desk.asking(ask);
    EXPECT_EQ(answer, Answer::cancel);
    EXPECT_EQ(desk.zormod.results.msgAnswer, 2);
}

TEST(frmOKCAN, EscAndTheCloseBoxCancel) {
    MessageDesk desk;
    const auto ask = [&] { EXPECT_EQ(desk.zormod.platform.dialogs.askOkCancel(u"a", u"b"), Answer::cancel); };
    desk.inNextModal(plainKey(Key::escape));
    desk.asking(ask);
    EXPECT_EQ(desk.zormod.results.msgAnswer, 2);
    desk.zormod.results.msgAnswer = 0;
    desk.inNextModal([] { QApplication::activeWindow()->close(); });
    desk.asking(ask);
    EXPECT_EQ(desk.zormod.results.msgAnswer, 2);
}

TEST(frmOKCAN, DescribesItselfWithItsCaptionInFront) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.spoken();
        desk.world.later();
        desk.keys.press(ctrlShiftKey(Key::a));
        EXPECT_THAT(desk.spoken(), ElementsAre("題。本文"));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askOkCancel(u"本文", u"題"); });
}

TEST(frmCMSG, YAndNAndEscAnswerAtOnce) {
    MessageDesk desk;
    Answer answer = Answer::ok;
    const auto ask = [&] { answer = desk.zormod.platform.dialogs.askYesNoCancel(u"", u"上書きしますか"); };
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "はい／いいえ／ｷｬﾝｾﾙ");
        EXPECT_THAT(desk.spoken(), ElementsAre("上書きしますか。はい､はＹ、いいえ、はＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます"));
        expectNamed(desk, {u"lblMSG", u"cmdYES", u"cmdNO", u"Command1"});
        desk.keys.press(plainKey(Key::y));
    });
    desk.asking(ask);
    EXPECT_EQ(answer, Answer::yes);
    EXPECT_EQ(desk.zormod.results.msgAnswer, 6);
    desk.inNextModal([&] {
        desk.keys.press(plainKey(Key::tab));
        desk.keys.press(plainKey(Key::tab));
        EXPECT_EQ(desk.focus(), "Command1");
        desk.keys.press(plainKey(Key::n));
    });
    desk.asking(ask);
    EXPECT_EQ(answer, Answer::no);
    EXPECT_EQ(desk.zormod.results.msgAnswer, 7);
    desk.inNextModal(plainKey(Key::escape));
    desk.asking(ask);
    EXPECT_EQ(answer, Answer::cancel);
    EXPECT_EQ(desk.zormod.results.msgAnswer, 2);
}

TEST(frmCMSG, ThePromptIsItsTitle) {
    MessageDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "削除の確認");
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askYesNoCancel(u"削除の確認", u"a"); });
}

TEST(frmCMSG, ButtonsSayThemselvesAndAnswerByEnter) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.spoken();
        desk.world.later();
        desk.keys.press(plainKey(Key::tab));
        EXPECT_THAT(desk.spoken(), ElementsAre("いいえ(N)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.world.later();
        desk.keys.press(plainKey(Key::tab));
        EXPECT_THAT(desk.spoken(), ElementsAre("ｷｬﾝｾﾙ(ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.world.later();
        desk.keys.press(plainKey(Key::tab));
        EXPECT_THAT(desk.spoken(), ElementsAre("[はい](Y)ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.keys.press(plainKey(Key::tab));
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { EXPECT_EQ(desk.zormod.platform.dialogs.askYesNoCancel(u"", u"a"), Answer::no); });
}

TEST(frmCMSG, AKeyThatIsNoAnswerIsToldTheKeys) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.spoken();
        desk.world.later();
        desk.keys.press(plainKey(Key::k));
        EXPECT_THAT(desk.spoken(), ElementsAre("本文。はい､わＹ、いいえ、わＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます"));
        desk.world.later();
        desk.keys.press(plainKey(Key::shift));
        EXPECT_THAT(desk.spoken(), IsEmpty());
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askYesNoCancel(u"", u"本文"); });
}

TEST(frmTin, TakesALineOfText) {
    MessageDesk desk;
    Text answer;
    desk.inNextModal([&] {
        EXPECT_THAT(desk.spoken(), ElementsAre("フォルダの作成。フォルダ名を入力してください"));
        EXPECT_EQ(desk.title(), "フォルダの作成");
        EXPECT_EQ(desk.focus(), "Text1");
        expectNamed(desk, {u"Label1", u"Text1", u"Command1", u"Command2"});
        desk.keys.type(u"b");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] {
        answer = desk.zormod.platform.dialogs.askText(u"フォルダ名を入力してください", u"フォルダの作成", u"a");
    });
    EXPECT_EQ(answer, u"ab");
}

TEST(frmTin, TypingAndTheBoxKeysSpeak) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.spoken();
        desk.world.later();
        desk.keys.type(u"x");
        EXPECT_THAT(desk.spoken(), ElementsAre("ｴｯｸｽ"));
        desk.world.later();
        desk.keys.press(plainKey(Key::left));
        EXPECT_THAT(desk.spoken(), ElementsAre("ｴｯｸｽ"));
        desk.world.later();
        desk.keys.press(shiftKey(Key::pageDown));
        EXPECT_THAT(desk.spoken(), ElementsAre("x､ﾃｷｽﾄﾎﾞｯｸｽ"));
        desk.world.later();
        desk.keys.press(plainKey(Key::tab));
        EXPECT_THAT(desk.spoken(), ElementsAre("OK､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.world.later();
        desk.keys.press(shiftKey(Key::tab));
        EXPECT_THAT(desk.spoken(), ElementsAre("x､ﾃｷｽﾄﾎﾞｯｸｽ"));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askText(u"p", u"t", u""); });
}

TEST(frmTin, EscAndCancelGiveAnEmptyText) {
    MessageDesk desk;
    desk.inNextModal(plainKey(Key::escape));
    desk.asking([&] { EXPECT_EQ(desk.zormod.platform.dialogs.askText(u"p", u"t", u"default"), u""); });
    desk.inNextModal([&] {
        desk.keys.press(plainKey(Key::tab));
        desk.keys.press(plainKey(Key::tab));
        EXPECT_EQ(desk.focus(), "Command2");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { EXPECT_EQ(desk.zormod.platform.dialogs.askText(u"p", u"t", u"default"), u""); });
}

TEST(frmTin, PastesTheUsersTextAndNotTheLastWords) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.zormod.speech.userClipboard = u"mine";
        EXPECT_NE(desk.world.clipboard.contents, u"mine");
        desk.keys.press(shiftKey(Key::insert));
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { EXPECT_EQ(desk.zormod.platform.dialogs.askText(u"p", u"t", u""), u"mine"); });
}

TEST(frmTin, RemembersWhatWasCopiedInIt) {
    MessageDesk desk;
    desk.inNextModal([&] {
        desk.keys.press(shiftKey(Key::left));
        desk.keys.press(ctrlKey(Key::insert));
        EXPECT_EQ(desk.zormod.speech.userClipboard, u"c");
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askText(u"p", u"t", u"abc"); });
}

TEST(frmTin, AMessageAboveItComesBackToItsBox) {
    MessageDesk desk;
    desk.inNextModal([&] {
        auto* text = static_cast<KeyLineEdit*>(desk.control(u"Text1"));
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "t") << "the title of the form that is active";
            desk.keys.press(plainKey(Key::enter));
        });
        desk.guard.run([&] { desk.zormod.platform.dialogs.showMessage(u"inner", u""); });
        desk.settle();
        EXPECT_EQ(desk.focus(), "Text1");
        desk.keys.type(u"7");
        EXPECT_EQ(text->view().text, u"7");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] { EXPECT_EQ(desk.zormod.platform.dialogs.askText(u"p", u"t", u""), u"7"); });
    EXPECT_EQ(desk.focus(), "box");
}
