// The input helpers at the desk: the pinned item, ID numbers, the input limit, the list of items, by keys.

#include "start/table_opening.h"
#include "support/qt/start_desk.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using Said = std::vector<std::string>;

/// A table of three items and three records, the current cell on record 1, item 0.
struct HelperDesk : StartDesk {
    explicit HelperDesk(int speechMode = 1) {
        openTable({{u"ID", u"L", 5}, {u"氏名", u"L", 10}, {u"年齢", u"R", 4}},
                  {{u"1", u"山田", u"42"}, {u"2", u"鈴木", u"7"}, {u"3", u"", u"30"}});
        zormod.speech.speechMode = static_cast<std::int16_t>(speechMode);
        form.showReadingMode(speechMode);
        spoken();
    }
    /// Answers the next question by keys.
    void answer(TextView text) {
        inNextModal([this, text] {
            keys.type(text);
            key(plainKey(Key::enter));
        });
    }
    void pin(TextView item) {
        answer(item);
        key(ctrlKey(Key::a));
    }
    /// The open frmSPITEM; null if there is none.
    QDialog* pinnedForm() const {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QStringLiteral("frmSPITEM") && window->isVisible()) {
                return static_cast<QDialog*>(window);
            }
        }
        return nullptr;
    }
    static std::string labelOf(const QDialog* window) {
        return window->findChild<QLabel*>(QStringLiteral("Label1"))->text().toStdString();
    }
    QColor ground(const char* label) {
        const auto* found = qobject_cast<QLabel*>(part(label));
        return found->autoFillBackground() ? found->palette().color(QPalette::Window) : QColor();
    }
};

/// Counts how often a widget is painted.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

} // namespace

TEST(PinnedItemForm, IsShownBesideTheEditScreenWithoutTakingTheKeyboard) {
    HelperDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "常時ﾃﾞｰﾀ表示項目の設定");
        EXPECT_THAT(desk.spoken(),
                    ElementsAre(HasSubstr("指定項目ﾃﾞｰﾀを｡常時表示します｡ﾃﾞｰﾀ入力時参照のために使って下さい｡\r"
                                          "この機能は｢項目番号｣ﾗﾍﾞﾙをWｸﾘｯｸしても実行できます｡")));
        desk.keys.type(u"1");
        desk.key(plainKey(Key::enter));
    });
    desk.key(ctrlKey(Key::a));
    ASSERT_NE(desk.pinnedForm(), nullptr);
    EXPECT_EQ(desk.pinnedForm()->windowTitle().toStdString(), "1項目:氏名");
    EXPECT_EQ(HelperDesk::labelOf(desk.pinnedForm()), "山田");
    EXPECT_EQ(QApplication::activeWindow(), &desk.form);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.spoken(), testing::Contains("データ入力ﾃｷｽﾄﾎﾞｯｸｽ"));
    desk.keys.type(u"x");
    EXPECT_EQ(desk.text("txtinputbox"), "x");
    EXPECT_TRUE(desk.pinnedForm()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(desk.pinnedForm()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_FALSE(desk.pinnedForm()->isModal());
}

TEST(PinnedItemForm, FollowsTheRecordAndIsHeardOnDemand) {
    HelperDesk desk;
    desk.pin(u"1");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("2 ､"));
    EXPECT_EQ(HelperDesk::labelOf(desk.pinnedForm()), "鈴木");
    EXPECT_THAT(desk.spokenBy(altKey(Key::g)), ElementsAre("鈴木。1項目:氏名"));
    desk.guard.run([&] { desk.commands.run(u"mnuJY"); });
    EXPECT_THAT(desk.spokenBy(plainKey(Key::up)), ElementsAre("山田 1 ､"));
}

TEST(PinnedItemForm, ControlAUnpinsItAgain) {
    HelperDesk desk;
    desk.pin(u"0");
    ASSERT_NE(desk.pinnedForm(), nullptr);
    EXPECT_THAT(desk.spokenBy(ctrlKey(Key::a)), ElementsAre("データ入力ﾃｷｽﾄﾎﾞｯｸｽ"));
    EXPECT_EQ(desk.pinnedForm(), nullptr);
    EXPECT_EQ(desk.zormod.input.pinnedItem, -1);
    EXPECT_THAT(desk.spokenBy(altKey(Key::g)), ElementsAre("常時表示項目はありません"));
    desk.pin(u"2");
    ASSERT_NE(desk.pinnedForm(), nullptr) << "it can be pinned anew";
    EXPECT_EQ(HelperDesk::labelOf(desk.pinnedForm()), "42");
}

TEST(PinnedItemForm, ItsCloseBoxUnpinsTheItem) {
    HelperDesk desk;
    desk.pin(u"0");
    desk.spoken();
    desk.world.later();
    desk.pinnedForm()->close();
    desk.settle();
    EXPECT_EQ(desk.zormod.input.pinnedItem, -1);
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.spoken(), ElementsAre("データ入力ﾃｷｽﾄﾎﾞｯｸｽ"));
}

TEST(PinnedItemForm, ADoubleClickOnTheLabelTogglesFromTheSecondOneOn) {
    HelperDesk desk;
    QTest::mouseDClick(desk.part("Label3"), Qt::LeftButton);
    EXPECT_EQ(desk.world.beeper.count, 1) << "item 0";
    desk.key(plainKey(Key::right));
    QTest::mouseDClick(desk.part("Label3"), Qt::LeftButton);
    EXPECT_EQ(desk.pinnedForm(), nullptr);
    QTest::mouseClick(desk.part("Label3"), Qt::LeftButton);
    EXPECT_EQ(desk.pinnedForm(), nullptr) << "one click does nothing";
    QTest::mouseDClick(desk.part("Label3"), Qt::LeftButton);
    desk.settle();
    ASSERT_NE(desk.pinnedForm(), nullptr);
    EXPECT_EQ(HelperDesk::labelOf(desk.pinnedForm()), "山田");
    QTest::mouseDClick(desk.part("Label3"), Qt::LeftButton);
    desk.settle();
    EXPECT_EQ(desk.pinnedForm(), nullptr);
    EXPECT_EQ(desk.zormod.input.pinnedItem, 0);
}

TEST(PinnedItemForm, WithSpeechOffEachRecordIsPaintedAtOnce) {
    for (const int speechMode : {0, 1}) {
        HelperDesk desk(speechMode);
        desk.pin(u"1");
        desk.settle();
        PaintCount count(*desk.pinnedForm()->findChild<QLabel*>(QStringLiteral("Label1")));
        desk.keys.down(plainKey(Key::down));
        EXPECT_EQ(count.paints, speechMode == 0 ? 1 : 0);
        desk.keys.up(plainKey(Key::down));
    }
}

TEST(IdNumberingKeys, F1StartsAndEndsTheNumbering) {
    HelperDesk desk;
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "ID番号の初期値");
        EXPECT_EQ(static_cast<QLineEdit*>(desk.control(u"Text1"))->text().toStdString(), "1");
        desk.key(plainKey(Key::end));
        desk.keys.type(u"0");
        desk.key(plainKey(Key::enter));
    });
    desk.key(plainKey(Key::f1));
    EXPECT_EQ(desk.text("Label13"), "10   (自動更新！)");
    desk.key(plainKey(Key::down));
    desk.key(plainKey(Key::down));
    EXPECT_EQ(desk.text("Label13"), "(自動更新！)12   ");
    EXPECT_EQ(desk.world.bytesOf("t.txt").substr(0, 5), "10   ");
    EXPECT_EQ(desk.world.bytesOf("t.txt").substr(256, 5), "11   ");
    desk.key(plainKey(Key::f1));
    EXPECT_EQ(desk.text("Label13"), "12   ");
    EXPECT_EQ(desk.zormod.input.idAutoOn, 0);
}

TEST(IdNumberingKeys, AClickOnTheLabelDoesTheSame) {
    HelperDesk desk;
    desk.answer(u"");
    QTest::mouseClick(desk.part("Label4"), Qt::LeftButton);
    EXPECT_EQ(desk.text("Label13"), "1    (自動更新！)") << "the default was taken";
}

TEST(InputLimitKeys, ControlBSetsTheLimitAndLiftsIt) {
    HelperDesk desk;
    desk.answer(u"2");
    desk.key(ctrlKey(Key::b));
    EXPECT_EQ(desk.text("Label8"), "入力字数制限:2");
    EXPECT_EQ(desk.ground("Label8"), QColor(0xFF, 0xFF, 0x00));
    desk.keys.type(u"ab");
    EXPECT_EQ(desk.zormod.position.curItem, 1);
    desk.inNextModal([&] {
        EXPECT_THAT(desk.spoken(), testing::Contains(HasSubstr("入力文字数を項目幅とします")));
        desk.key(plainKey(Key::enter));
    });
    desk.key(ctrlKey(Key::b));
    EXPECT_EQ(desk.text("Label8"), "入力字数制限:項目幅");
    EXPECT_EQ(desk.ground("Label8"), QColor(0x00, 0xFF, 0x00));
    EXPECT_EQ(desk.zormod.input.inputLimit, 0);
}

TEST(InputLimitKeys, TheLettersOfTheLabelAreBlackOnItsColour) {
    HelperDesk desk;
    EXPECT_FALSE(desk.ground("Label8").isValid());
    desk.answer(u"2");
    desk.key(ctrlKey(Key::b));
    EXPECT_EQ(desk.part("Label8")->palette().color(QPalette::WindowText), QColor(0, 0, 0));
}

TEST(InputLimitKeys, SpaceAndEndHoldTheLimitBackAndRestoreIt) {
    HelperDesk desk;
    EXPECT_EQ(desk.text("Label8"), "字数制限:項目幅") << "as the table was opened";
    desk.answer(u"3");
    desk.key(ctrlKey(Key::b));
    const Said suspended{"入力字数制限を一時解除します。もう一度スペースｷｰを叩くと入力字数制限が復活します"};
    const Said restored{"入力字数制限を復活します。入力字数制限:3"};
    desk.key(plainKey(Key::right));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::end)), suspended);
    EXPECT_EQ(desk.text("Label8"), "入力字数制限一時解除");
    desk.keys.type(u"abcd");
    EXPECT_EQ(desk.text("txtinputbox"), "abcd") << "longer than the limit";
    desk.key(plainKey(Key::escape));
    EXPECT_EQ(desk.spokenBy(plainKey(Key::space)), restored);
    EXPECT_EQ(desk.text("Label8"), "入力字数制限:3");
    EXPECT_EQ(desk.text("txtinputbox"), "");
    desk.keys.type(u"abc");
    EXPECT_EQ(desk.cell(1), "abc       ");
    EXPECT_EQ(desk.zormod.position.curItem, 2);
}

TEST(InputLimitKeys, ATableOpensWithTheLimitInForceInItsLabel) {
    HelperDesk desk;
    desk.answer(u"3");
    desk.key(ctrlKey(Key::b));
    desk.guard.run([&] { desk.commands.run(showOpenedTableCommand); });
    EXPECT_EQ(desk.text("Label8"), "制限字数:3");
}

TEST(ItemListForm, SaysItselfOnEnteringAndItsLinesByTheArrows) {
    HelperDesk desk;
    const std::string entrance =
        "ｺｳﾓｸｲﾁﾗﾝﾌｫｰﾑがﾋｮｳｼﾞｻﾚﾏｼﾀ｡ｺｳﾓｸ数2ﾔｼﾞﾙｼｷ-ﾃﾞ ｺｳﾓｸﾘｽﾄｦ ｲﾄﾞｳｽﾙﾄ ｺｳﾓｸﾒｲ､ﾊｲﾁ､ｺｳﾓｸﾊﾊﾞ､ｶﾞ､ﾖﾐｱｹﾞﾗﾚﾏｽ";
    desk.inNextModal([&] {
        EXPECT_EQ(desk.title(), "項目一覧");
        EXPECT_THAT(desk.spoken(), ElementsAre(entrance));
        EXPECT_EQ(static_cast<QLabel*>(desk.control(u"Label1"))->text().toStdString(), "項目数2");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("    0:ID(5/L)､項目ﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("    1:氏名(10/L)､項目ﾘｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("消去戻る(esc)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre(entrance)) << "each time it is entered";
        desk.key(plainKey(Key::escape));
    });
    desk.tabTo("txtREC");
    desk.spoken();
    desk.key(ctrlKey(Key::l));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.spoken(), ElementsAre("データ入力ﾃｷｽﾄﾎﾞｯｸｽ"));
}

TEST(ItemListForm, ItsButtonClosesItToo) {
    HelperDesk desk;
    desk.inNextModal([&] {
        desk.key(plainKey(Key::tab));
        desk.key(plainKey(Key::enter));
    });
    desk.key(ctrlKey(Key::l));
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_EQ(QApplication::activeWindow(), &desk.form);
}

TEST(InputHelpers, WithoutATableEachOfThemOnlyBeeps) {
    StartDesk desk;
    desk.open(desk.form);
    int beeps = 0;
    for (const KeyStroke& stroke :
         {ctrlKey(Key::a), ctrlKey(Key::b), ctrlKey(Key::l), plainKey(Key::f1), plainKey(Key::f6), plainKey(Key::f7)}) {
        desk.key(stroke);
        EXPECT_EQ(desk.world.beeper.count, ++beeps);
    }
    for (const char* label : {"Label4", "Label6"}) {
        QTest::mouseClick(desk.part(label), Qt::LeftButton);
        EXPECT_EQ(desk.world.beeper.count, ++beeps);
    }
    QTest::mouseDClick(desk.part("Label3"), Qt::LeftButton);
    EXPECT_EQ(desk.world.beeper.count, ++beeps);
}
