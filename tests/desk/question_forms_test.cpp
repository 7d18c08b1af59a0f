// The message forms that ask: frmOKCAN, frmCMSG, frmTin.

#include "support/qt/message_desk.h"

#include <QApplication>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;

namespace {

/// The texts spoken by one key of a form that is up, after a pause that lets its reading pass the throttle.
std::vector<std::string> saidBy(MessageDesk& desk, const KeyStroke& stroke) {
    desk.world.later();
    desk.spoken();
    desk.keys.press(stroke);
    return desk.spoken();
}

} // namespace

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

TEST(frmOKCAN, TheReadingKeysOnAButtonSayTheQuestionFirst) {
    MessageDesk desk;
    desk.inNextModal([&] {
        EXPECT_THAT(saidBy(desk, ctrlShiftKey(Key::s)), ElementsAre("本文､OKコマンドボタン"));
        saidBy(desk, plainKey(Key::tab));
        EXPECT_THAT(saidBy(desk, shiftKey(Key::pageDown)), ElementsAre("本文､キャンセルコマンドボタン"));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askOkCancel(u"本文", u"題"); });
}

TEST(frmCMSG, TheReadingKeysOnAButtonSayTheQuestionFirst) {
    MessageDesk desk;
    desk.inNextModal([&] {
        EXPECT_THAT(saidBy(desk, ctrlShiftKey(Key::s)), ElementsAre("消しますか､[はい](Y)ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_THAT(saidBy(desk, plainKey(Key::tab)), ElementsAre("いいえ(N)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_THAT(saidBy(desk, ctrlShiftKey(Key::s)), ElementsAre("消しますか､いいえ(N)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_THAT(saidBy(desk, plainKey(Key::tab)), ElementsAre("ｷｬﾝｾﾙ(ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_THAT(saidBy(desk, shiftKey(Key::pageDown)), ElementsAre("消しますか､ｷｬﾝｾﾙ(ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askYesNoCancel({}, u"消しますか"); });
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
        EXPECT_THAT(desk.spoken(),
                    ElementsAre("上書きしますか。はい､はＹ、いいえ、はＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます"));
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

TEST(frmCMSG, ACapitalLetterAnswersToo) {
    for (const auto& [key, expected] : {std::pair(Key::y, Answer::yes), std::pair(Key::n, Answer::no)}) {
        MessageDesk desk;
        Answer answer = Answer::ok;
        desk.inNextModal(shiftKey(key));
        desk.asking([&] { answer = desk.zormod.platform.dialogs.askYesNoCancel(u"", u"上書きしますか"); });
        EXPECT_EQ(answer, expected);
    }
}

TEST(frmCMSG, TheSheetCanBeReadInItAndAltNIsNoAnswer) {
    MessageDesk desk;
    desk.world.table({{u"ID", u"L", 4}, {u"氏名", u"L", 10}}, {{u"1", u"山田"}});
    desk.zormod.position.curItem = 1;
    Answer answer = Answer::ok;
    desk.inNextModal([&] {
        EXPECT_THAT(saidBy(desk, altKey(Key::n)), ElementsAre("山田      。ギョウ1 項目1氏名"));
        EXPECT_THAT(saidBy(desk, altKey(Key::m)), ElementsAre("ギョウ1 1   山田"));
        EXPECT_EQ(desk.title(), "はい／いいえ／ｷｬﾝｾﾙ");
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { answer = desk.zormod.platform.dialogs.askYesNoCancel(u"", u"消しますか"); });
    EXPECT_EQ(answer, Answer::cancel);
}

TEST(frmCMSG, DescribesItselfInTheWordsOfItsOpening) {
    MessageDesk desk;
    desk.inNextModal([&] {
        EXPECT_THAT(saidBy(desk, ctrlShiftKey(Key::a)),
                    ElementsAre(EndsWith("消しますか。はい､はＹ、いいえ、はＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます")));
        desk.keys.press(plainKey(Key::escape));
    });
    desk.asking([&] { desk.zormod.platform.dialogs.askYesNoCancel(u"", u"消しますか"); });
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
        desk.keys.press(plainKey(Key::end));
        desk.keys.type(u"b");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.asking([&] {
        answer = desk.zormod.platform.dialogs.askText(u"フォルダ名を入力してください", u"フォルダの作成", u"a");
    });
    EXPECT_EQ(answer, u"ab");
}

TEST(frmTin, WhatIsTypedTakesThePlaceOfTheProposedAnswerWhichEnterTakes) {
    for (const auto& [typed, expected] : {std::pair(u"2", u"2"), std::pair(u"", u"1")}) {
        MessageDesk desk;
        desk.inNextModal([&] {
            desk.keys.type(typed);
            desk.keys.press(plainKey(Key::enter));
        });
        desk.asking([&] { EXPECT_EQ(desk.zormod.platform.dialogs.askText(u"p", u"t", u"1"), expected); });
    }
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
        desk.keys.press(plainKey(Key::end));
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
