// The edit screen as its user meets it: keys in, words, focus and bytes out.

#include "edit/status_update.h"
#include "support/qt/edit_desk.h"
#include "voice/reading_mode.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// Counts how often the parts of a widget are laid out.
class LayoutCount : public QObject {
public:
    explicit LayoutCount(QWidget& widget) {
        for (QWidget* watched : widget.findChildren<QWidget*>()) {
            watched->installEventFilter(this);
        }
    }
    int events = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        events += event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize ? 1 : 0;
        return false;
    }
};

/// A small table, open, the current cell on record 1, item 0.
struct Form1Desk : EditDesk {
    explicit Form1Desk(int speechMode = 1) {
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 4}},
                  {{u"1", u"山田", u"42"}, {u"2", u"鈴木", u"7"}, {u"3", u"", u"30"}});
        zormod.speech.speechMode = static_cast<std::int16_t>(speechMode);
        form.showReadingMode(speechMode);
        spoken();
    }
    std::pair<int, int> place() const { return {zormod.position.curRecord, zormod.position.curItem}; }
    void click(const char* name) { QTest::mouseClick(part(name), Qt::LeftButton); }
};

} // namespace

TEST(Form1, TheInputBoxHasTheFocusWhenATableIsOpen) {
    Form1Desk desk;
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_EQ(desk.text("txtREC"), " 1");
    EXPECT_EQ(desk.text("txtItemnum"), "0");
    EXPECT_EQ(desk.text("Text1"), "2");
    EXPECT_EQ(desk.text("RichTextBox1"), "ID");
    EXPECT_EQ(desk.text("Label11"), "全項目(0～2)");
    EXPECT_EQ(desk.text("Label8"), "字数制限:項目幅");
    EXPECT_THAT(desk.title(), HasSubstr("/記録数:3)"));
}

TEST(Form1, OpeningSaysTheDescriptionOnce) {
    EditDesk desk;
    desk.zormod.speech.speechMode = 1;
    desk.open(desk.form);
    EXPECT_THAT(desk.spoken(), ElementsAre(HasSubstr("ロミカのベースWindowです。")));
}

TEST(Form1, WalkingInDataModeSpeaksTheDataAlone) {
    Form1Desk desk(1);
    EXPECT_THAT(desk.spokenBy(plainKey(Key::right)), ElementsAre("山田､"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("鈴木 ､"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("ﾌﾞﾗﾝｸ ､"));
    EXPECT_EQ(desk.place(), std::pair(3, 1));
    EXPECT_EQ(desk.text("txtREC"), " 3");
}

TEST(Form1, WalkingInDetailModeSpeaksRowItemAndName) {
    Form1Desk desk(2);
    EXPECT_THAT(desk.spokenBy(plainKey(Key::right)), ElementsAre("山田､  ｷﾞｮｳ1 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"));
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("鈴木 ､  ｷﾞｮｳ2 ｺｳﾓｸ1 氏名 .ﾃﾞｰﾀﾆｭｳﾘｮｸﾃｷｽﾄﾎﾞｯｸｽ"));
}

TEST(Form1, AHeldArrowSpeaksAtMostOncePerInhibitTime) {
    Form1Desk desk;
    desk.keys.hold(plainKey(Key::down), 2);
    desk.settle();
    EXPECT_EQ(desk.spoken().size(), 1U);
    EXPECT_EQ(desk.zormod.position.curRecord, 4);
}

TEST(Form1, TypingAndEnterReplaceTheCellAndDownWritesIt) {
    Form1Desk desk;
    desk.key(plainKey(Key::right));
    desk.keys.type(u"abc");
    EXPECT_EQ(desk.text("txtinputbox"), "abc");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.cell(1), "abc       ");
    EXPECT_EQ(desk.place(), std::pair(1, 2));
    EXPECT_EQ(desk.text("txtinputbox"), "");
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.world.bytesOf("t.txt").substr(3, 10), "abc       ");
}

TEST(Form1, AFullItemCommitsItselfAndMovesOn) {
    Form1Desk desk;
    desk.keys.type(u"777");
    desk.settle();
    EXPECT_EQ(desk.place(), std::pair(1, 1));
    EXPECT_EQ(desk.text("txtinputbox"), "");
    EXPECT_EQ(desk.cell(0), "777");
}

TEST(Form1, TabGoesRoundThePanelAndEachBoxSaysItsName) {
    Form1Desk desk;
    std::vector<std::string> walked;
    for (int i = 0; i < 8; ++i) {
        const auto spoken = desk.spokenBy(plainKey(Key::tab));
        ASSERT_EQ(spoken.size(), 1U) << desk.focus();
        walked.push_back(desk.focus() + ":" + spoken.front());
    }
    EXPECT_THAT(walked, ElementsAre(HasSubstr("txtREC: 1､行番号ﾃｷｽﾄﾎﾞｯｸｽ"), HasSubstr("txtItemnum:0､こうもく番号"),
                                    HasSubstr("txtWIDTH:3､項目幅"), HasSubstr("txtLR:L､さゆう配置"),
                                    HasSubstr("Text1:2､項目数"), HasSubstr("RichTextBox1:ID､"),
                                    HasSubstr("RichTextBox2:"), HasSubstr("txtinputbox:")));
}

TEST(Form1, ARecordNumberAndEnterJumpsAndGoesBackToTheInputBox) {
    Form1Desk desk;
    desk.key(plainKey(Key::tab));
    desk.key(ctrlKey(Key::c));
    desk.key(shiftKey(Key::home));
    desk.keys.type(u"3");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.place(), std::pair(3, 0));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_EQ(desk.text("txtREC"), " 3");
}

TEST(Form1, ARecordNumberOutsideTheFileBeepsAndIsPutRight) {
    Form1Desk desk;
    desk.key(plainKey(Key::tab));
    desk.key(shiftKey(Key::home));
    desk.keys.type(u"9");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.world.beeper.count, 1);
    EXPECT_EQ(desk.text("txtREC"), " 1");
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(Form1, AnItemNumberOutsideTheTableIsPutRightWhileTyping) {
    Form1Desk desk;
    desk.key(plainKey(Key::tab));
    desk.key(plainKey(Key::tab));
    ASSERT_EQ(desk.focus(), "txtItemnum");
    desk.keys.type(u"9");
    EXPECT_EQ(desk.world.beeper.count, 1);
    EXPECT_EQ(desk.text("txtItemnum"), "0");
}

TEST(Form1, ANumberTypedInAPositionBoxIsSaidOnceUnderTheNameOfTheBox) {
    Form1Desk desk(2);
    desk.key(plainKey(Key::tab));
    desk.key(shiftKey(Key::home));
    desk.spoken();
    desk.keys.type(u"2");
    EXPECT_THAT(desk.spoken(), ElementsAre("2､行番号ﾃｷｽﾄﾎﾞｯｸｽ"));
    desk.key(plainKey(Key::tab));
    ASSERT_EQ(desk.focus(), "txtItemnum");
    desk.key(shiftKey(Key::home));
    desk.spoken();
    desk.keys.type(u"2");
    EXPECT_THAT(desk.spoken(), ElementsAre("2､こうもく番号ﾃｷｽﾄﾎﾞｯｸｽ"));
    EXPECT_EQ(desk.place(), std::pair(1, 0));
}

TEST(Form1, EnterInTheMemoKeepsIt) {
    Form1Desk desk;
    desk.key(shiftKey(Key::tab));
    ASSERT_EQ(desk.focus(), "RichTextBox2");
    desk.key(plainKey(Key::end));
    desk.keys.type(u"xy");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.world.bytesOf("kt.txt"), HasSubstr("xy,"));
}

TEST(Form1, LabelsGiveFocusOrStartTheirCommand) {
    Form1Desk desk;
    desk.click("Label2");
    EXPECT_EQ(desk.focus(), "txtREC");
    desk.click("lblJITEM");
    EXPECT_EQ(desk.focus(), "RichTextBox2");
    std::vector<std::string> ran;
    for (const auto* name : {u"mnuIDAUTO", u"Label3", u"Label6"}) {
        desk.commands.bind(name, [&ran, name] { ran.push_back(utf8(name)); });
    }
    desk.click("Label4");
    desk.click("Label6");
    desk.click("Label3");
    EXPECT_THAT(ran, ElementsAre("mnuIDAUTO", "Label6"));
    QTest::mouseDClick(desk.part("Label3"), Qt::LeftButton);
    EXPECT_THAT(ran, ElementsAre("mnuIDAUTO", "Label6", "Label3"));
}

TEST(Form1, ShortcutsWinOverTheBoxsOwnEditingKeys) {
    Form1Desk desk;
    std::vector<std::string> ran;
    for (const auto* name : {u"mnuSPITEM", u"mnuIPASTE", u"mnuCTRLU", u"mnuHJ", u"mnuDEPAST", u"mnuSEARCH"}) {
        desk.commands.bind(name, [&ran, name] { ran.push_back(utf8(name)); });
    }
    desk.keys.type(u"ab");
    for (const KeyStroke& stroke :
         {ctrlKey(Key::a), ctrlKey(Key::y), ctrlKey(Key::u), ctrlKey(Key::h), ctrlKey(Key::i), plainKey(Key::f3)}) {
        desk.key(stroke);
    }
    EXPECT_THAT(ran, ElementsAre("mnuSPITEM", "mnuIPASTE", "mnuCTRLU", "mnuHJ", "mnuDEPAST", "mnuSEARCH"));
    EXPECT_EQ(desk.text("txtinputbox"), "ab");
}

TEST(Form1, AJumpAsksThroughItsFormAndReturnsToTheInputBox) {
    Form1Desk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "指定記録へ移動");
        desk.keys.type(u"+2");
        desk.keys.press(plainKey(Key::enter));
    });
    desk.key(ctrlKey(Key::j));
    EXPECT_EQ(desk.place(), std::pair(3, 0));
    EXPECT_EQ(desk.focus(), "txtinputbox");
}

TEST(Form1, ReadingModesAreMarkedInTheMenu) {
    Form1Desk desk(1);
    const auto checked = [&](const char* name) {
        return desk.form.findChild<QAction*>(QLatin1StringView(name))->isChecked();
    };
    auto* jy = desk.form.findChild<QAction*>(QStringLiteral("mnuJY"));
    EXPECT_TRUE(checked("mnuDTKN"));
    desk.key(ctrlKey(Key::f11));
    EXPECT_FALSE(checked("mnuDTKN"));
    EXPECT_TRUE(checked("mnuDTKEX"));
    EXPECT_TRUE(jy->isEnabled());
    EXPECT_FALSE(desk.part("lblSpeek")->isHidden());
    desk.key(ctrlKey(Key::f12));
    EXPECT_TRUE(checked("mnuDTKOFF"));
    EXPECT_FALSE(checked("mnuDTKEX"));
    EXPECT_FALSE(jy->isEnabled());
    EXPECT_TRUE(desk.part("lblSpeek")->isHidden());
    // Chosen a second time the mode stays, and so does its mark.
    desk.key(ctrlKey(Key::f12));
    EXPECT_TRUE(checked("mnuDTKOFF"));
}

TEST(Form1, TheCloseBoxEndsInOrder) {
    Form1Desk desk;
    desk.form.close();
    EXPECT_EQ(desk.endStatus, 0);
    EXPECT_THAT(desk.spoken(), ElementsAre("ﾛﾐｶ ｼｭｳﾘｮｳ"));
    EXPECT_THAT(desk.world.bytesOf("zorTalk"), HasSubstr(" 1"));
}

TEST(Form1, EscapeClearsTheBoxAndASecondOneEnds) {
    Form1Desk desk;
    desk.keys.type(u"ab");
    desk.key(plainKey(Key::escape));
    EXPECT_EQ(desk.text("txtinputbox"), "");
    EXPECT_EQ(desk.endStatus, std::nullopt);
    desk.key(plainKey(Key::escape));
    EXPECT_EQ(desk.endStatus, 0);
}

TEST(Form1, CtrlShiftADescribesTheFormWithItsCaption) {
    Form1Desk desk;
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)),
                ElementsAre(testing::AllOf(HasSubstr("ロミカ ("), HasSubstr("ロミカのベースWindowです。"))));
}

TEST(Form1, TheInputBoxIsAsWideAsItsItemButNotWiderThanTheWindow) {
    Form1Desk desk;
    desk.key(plainKey(Key::right));
    const int ten = desk.part("txtinputbox")->width();
    desk.key(plainKey(Key::right));
    EXPECT_LT(desk.part("txtinputbox")->width(), ten);
    desk.form.setInputBoxWidth(250);
    desk.settle();
    EXPECT_LE(desk.part("txtinputbox")->width(), desk.form.width());
}

TEST(Form1, AFailureInAKeyIsToldAndTheProgramGoesOn) {
    Form1Desk desk;
    desk.commands.bind(u"mnuSEARCH", [] { throw RuntimeFailure{FailureKind::subscript}; });
    desk.inNextModal(plainKey(Key::enter));
    desk.key(plainKey(Key::f3));
    EXPECT_EQ(desk.endStatus, std::nullopt);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::right)), ElementsAre("山田､"));
}

TEST(Form1, NothingMovesWhenItemsOfDifferentWidthAreWalked) {
    EditDesk desk;
    desk.form.resize(1000, 700);
    desk.openTable({{u"ID", u"L", 12}, {u"氏名", u"L", 100}, {u"年齢", u"R", 2}},
                   {{u"1", u"a", u"1"}, {u"123456789012", u"b", u"2"}});
    const auto stands = [&] {
        return std::pair(desk.part("frmSHEET")->geometry(), desk.part("RichTextBox2")->mapTo(&desk.form, QPoint()));
    };
    const auto before = stands();
    const int rows = desk.zormod.position.windowRows;
    for (const Key key : {Key::right, Key::right, Key::down, Key::left}) {
        desk.key(plainKey(key));
        EXPECT_EQ(stands(), before);
        EXPECT_EQ(desk.zormod.position.windowRows, rows);
    }
}

TEST(Form1, LaysItselfOutNoMoreOnceItStands) {
    Form1Desk desk;
    desk.key(plainKey(Key::right));
    desk.settle();
    const LayoutCount count(desk.form);
    desk.settle();
    EXPECT_EQ(count.events, 0);
}

TEST(Form1, ItsDescriptionIsTheSameOnOpeningAndOnDemand) {
    const std::string description =
        "ロミカのベースWindowです。データ入力テキストボックスに　データを入力して、リターンキーをたたくと、ぎ"
        "ょう、項目番号で規定された セルに　テキストデータが うわがき　され、次の項目に、かきこみ項目が移動し"
        "ます。また  タブ キー で　記録番号や、項目番号テキストボックスなどに　フォーカスを移動すると　現在の"
        "記録番号や　項目番号が　読み上げられます。記録番号や項目番号を書きなおし、CRキーをたたくと。そのセル"
        "に、かきこみセルが、移動します。";
    {
        EditDesk desk;
        desk.zormod.speech.speechMode = 1;
        desk.open(desk.form);
        EXPECT_THAT(desk.spoken(), ElementsAre(EndsWith(description)));
    }
    Form1Desk desk;
    EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)), ElementsAre(EndsWith("。" + description)));
}
