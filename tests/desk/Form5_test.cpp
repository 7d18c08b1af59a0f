// Form5, where the items to input are chosen, by keys.

#include "support/qt/start_desk.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::ElementsAre;

namespace {

constexpr const char* instruction =
    "↑↓で項目を移動してＹ又はその他のキーをﾀｯﾁするか、ｸﾘｯｸする事で項目指定が出来ます。その後OKﾎﾞﾀﾝを｡中止はescを｡"
    "以後､ｾﾙ記入が終われば自動的に､指定項目にｶｰｿﾙが移動します｡";
constexpr const char* opening = "。記入項目の指定フォームが開かれました。特定の記入項目を指定します";

struct ChoiceDesk : StartDesk {
    ChoiceDesk() {
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 4}, {u"住所", u"L", 20}},
                  {{u"1", u"山田", u"42", u"東京"}, {u"2", u"鈴木", u"7", u""}});
        zormod.speech.speechMode = 1;
        spoken();
    }
    /// Presses F7 and runs `script` in the form.
    void inForm(std::function<void()> script) {
        inNextModal(std::move(script));
        key(plainKey(Key::f7));
    }
    void choose(int item) {
        key(plainKey(Key::home));
        for (int i = 0; i < item; ++i) {
            key(plainKey(Key::down));
        }
        key(plainKey(Key::y));
    }
    void ok() {
        key(plainKey(Key::tab));
        key(plainKey(Key::enter));
    }
};

} // namespace

TEST(Form5, SaysHowItIsWorkedWhenItOpens) {
    ChoiceDesk desk;
    desk.inForm([&] {
        EXPECT_EQ(desk.title(), "記入項目の指定");
        EXPECT_THAT(desk.spoken(), ElementsAre(std::string(instruction) + opening));
        EXPECT_EQ(static_cast<QLabel*>(desk.control(u"Label1"))->text().toStdString(), instruction);
        EXPECT_EQ(static_cast<QPushButton*>(desk.control(u"Command1"))->text().toStdString(), "OK");
        EXPECT_EQ(desk.focus(), "Grid1");
        EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)),
                    ElementsAre("記入項目の指定。" + std::string(instruction) + opening));
        desk.key(plainKey(Key::escape));
    });
}

TEST(Form5, KeysWalkAndMarkAndSayBoth) {
    ChoiceDesk desk;
    desk.inForm([&] {
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("0 ID"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("1 氏名"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::y)), ElementsAre("1 氏名､.指定"));
        EXPECT_EQ(desk.lineOf(u"Grid1"), "Y    1 氏名");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::down)), ElementsAre("2 年齢"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::up)), ElementsAre("1 氏名､.指定"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::space)), ElementsAre("1 氏名､.指定解除"));
        EXPECT_EQ(desk.lineOf(u"Grid1"), "     1 氏名");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::digit5)), ElementsAre("1 氏名､.指定"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("1 氏名､.指定解除"));
        EXPECT_EQ(desk.title(), "記入項目の指定") << "Enter in the list closes nothing";
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.world.beeper.count, 0);
}

TEST(Form5, AKeyBeforeAnyLineWasHeardBeeps) {
    ChoiceDesk desk;
    desk.inForm([&] {
        desk.key(plainKey(Key::y));
        EXPECT_EQ(desk.world.beeper.count, 1);
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.zormod.items.itemInputMark[0], 0);
}

TEST(Form5, TheCopyKeyBeforeAnyLineWasHeardCopiesNothing) {
    ChoiceDesk desk;
    for (const KeyStroke& copies : {ctrlKey(Key::insert), ctrlKey(Key::c)}) {
        desk.inForm([&] {
            desk.key(copies);
            EXPECT_EQ(desk.title(), "記入項目の指定") << "and nothing has failed";
            desk.key(plainKey(Key::escape));
        });
    }
}

TEST(Form5, AClickMarksItsLine) {
    ChoiceDesk desk;
    desk.inForm([&] {
        auto* list = static_cast<QListView*>(desk.control(u"Grid1"));
        const QPoint second = list->visualRect(list->model()->index(1, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
        EXPECT_EQ(desk.zormod.items.itemInputMark[1], 1);
        EXPECT_EQ(desk.lineOf(u"Grid1"), "Y    1 氏名");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
        EXPECT_EQ(desk.zormod.items.itemInputMark[1], 0);
        desk.key(plainKey(Key::escape));
    });
}

TEST(Form5, OkMovesToTheFirstChosenItemAndEnterStaysAmongThem) {
    ChoiceDesk desk;
    desk.inForm([&] {
        desk.choose(1);
        desk.choose(3);
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("OK､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.spoken();
        desk.key(plainKey(Key::enter));
    });
    EXPECT_EQ(desk.focus(), "txtinputbox");
    EXPECT_THAT(desk.spoken(), ElementsAre("山田､"));
    EXPECT_EQ(desk.text("Label11"), "1,3");
    EXPECT_THAT(desk.spokenBy(plainKey(Key::enter)), ElementsAre("東京､"));
    EXPECT_EQ(desk.text("Label11"), "1,3,");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.zormod.position.curRecord, 2);
    EXPECT_EQ(desk.zormod.position.curItem, 1);
    desk.key(plainKey(Key::f6));
    EXPECT_EQ(desk.text("Label11"), "全項目(0～3)");
    desk.key(plainKey(Key::enter));
    EXPECT_EQ(desk.zormod.position.curItem, 2);
    EXPECT_EQ(desk.text("Label11"), "全項目");
}

TEST(Form5, EscAndTheCloseBoxGiveUp) {
    for (const bool byCloseBox : {false, true}) {
        ChoiceDesk desk;
        desk.inForm([&] {
            desk.choose(2);
            if (byCloseBox) {
                QApplication::activeWindow()->close();
            } else {
                desk.key(plainKey(Key::escape));
            }
        });
        EXPECT_EQ(desk.zormod.input.allItemsInput, 1);
        EXPECT_EQ(desk.zormod.items.itemInputMark[2], 0);
        EXPECT_EQ(desk.text("Label11"), "全項目(0～3)");
        EXPECT_EQ(desk.focus(), "txtinputbox");
    }
}

TEST(Form5, AClickOnTheLabelOpensItAndTheNextOneTakesAllItems) {
    ChoiceDesk desk;
    desk.inNextModal([&] {
        desk.choose(2);
        desk.ok();
    });
    QTest::mouseClick(desk.part("Label6"), Qt::LeftButton);
    EXPECT_EQ(desk.text("Label11"), "2");
    QTest::mouseClick(desk.part("Label6"), Qt::LeftButton);
    EXPECT_EQ(desk.text("Label11"), "全項目(0～3)");
    EXPECT_EQ(desk.zormod.input.allItemsInput, 1);
}
