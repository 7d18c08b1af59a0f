// FrmBROCK, opened as printing, extraction and the trend graph open it, by keys.

#include "edit/block_ranges.h"
#include "support/qt/start_desk.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

struct BlockDesk : StartDesk {
    explicit BlockDesk(TextView taskWord = u"BTYU") {
        openTable({{u"ID", u"L", 3}, {u"氏名", u"L", 10}, {u"年齢", u"R", 4}},
                  {{u"1"}, {u"2"}, {u"3"}, {u"4"}, {u"5"}});
        zormod.speech.speechMode = 1;
        zormod.taskWord = Text(taskWord);
        spoken();
    }
    /// Opens the form as its callers do and runs `script` in it.
    bool ask(std::function<void()> script) {
        inNextModal(std::move(script));
        bool isChosen = false;
        guard.run([&] { isChosen = askBlockRanges(zormod); });
        settle();
        return isChosen;
    }
    std::string boxText(QAnyStringView name) { return static_cast<QLineEdit*>(control(name))->text().toStdString(); }
    std::string answer(int index) { return utf8(std::get<Text>(zormod.results.answers[index])); }
    void enter() { key(plainKey(Key::enter)); }
};

} // namespace

TEST(FrmBROCK, GivesItsInstructionWhenItOpensAndOnDemand) {
    BlockDesk desk;
    EXPECT_FALSE(desk.ask([&] {
        const std::string spoken = "多記録、項目ﾌﾞﾛｯｸ指定。" + utf8(BlockRanges::guidance());
        EXPECT_EQ(desk.title(), "多記録、項目ﾌﾞﾛｯｸ指定");
        EXPECT_THAT(desk.spoken(), ElementsAre(spoken));
        EXPECT_THAT(desk.spokenBy(ctrlShiftKey(Key::a)), ElementsAre(spoken));
        EXPECT_EQ(desk.focus(), "Text1");
        EXPECT_THAT(static_cast<QLabel*>(desk.control(u"Label1"))->text().toStdString(),
                    StartsWith("範囲を｢123...｣ と｢-｣ ｢/｣を使って記述してください\n第10記録から"));
        EXPECT_EQ(static_cast<QPushButton*>(desk.control(u"Command1"))->text().toStdString(), "実行(CR)");
        EXPECT_EQ(static_cast<QPushButton*>(desk.control(u"Command2"))->text().toStdString(), "中止(ESC)");
        desk.key(plainKey(Key::escape));
    }));
    EXPECT_EQ(desk.answer(0), "");
    EXPECT_EQ(desk.answer(1), "");
    EXPECT_EQ(utf8(desk.zormod.taskWord), "BTYU");
}

TEST(FrmBROCK, UnderPrintTheLabelBeginsInAnotherWay) {
    BlockDesk desk(u"PRINT");
    desk.ask([&] {
        EXPECT_THAT(static_cast<QLabel*>(desk.control(u"Label1"))->text().toStdString(),
                    StartsWith("範囲を｢123...｣ と｢-｣｢/｣を使って記述してください\n"));
        desk.key(plainKey(Key::escape));
    });
}

TEST(FrmBROCK, BoxesSayTheirNamesAndWhatIsTyped) {
    BlockDesk desk;
    desk.ask([&] {
        EXPECT_THAT(desk.spokenBy(plainKey(Key::digit3)), ElementsAre("3"));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("項目範囲ﾃｷｽﾄﾎﾞｯｸｽ"));
        EXPECT_THAT(desk.spokenBy(shiftKey(Key::tab)), ElementsAre("3､記録範囲ﾃｷｽﾄﾎﾞｯｸｽ"));
        desk.key(plainKey(Key::escape));
    });
}

TEST(FrmBROCK, TwoListsAreHandedOnForEachTask) {
    for (const TextView word : {u"PRINT", u"BTYU", u"MLINE"}) {
        BlockDesk desk(word);
        EXPECT_TRUE(desk.ask([&] {
            desk.keys.type(u"4-5/1");
            desk.key(plainKey(Key::tab));
            desk.keys.type(u"2/0");
            desk.enter();
        })) << utf8(word);
        EXPECT_EQ(desk.answer(0), "4-5/1");
        EXPECT_EQ(desk.answer(1), "2/0");
        EXPECT_EQ(desk.focus(), "txtinputbox");
    }
}

TEST(FrmBROCK, EnterThreeTimesTakesTheWholeTable) {
    for (const auto& [word, items] :
         {std::pair(u"PRINT", "0-2"), std::pair(u"BTYU", "0-2"), std::pair(u"MLINE", "1-2")}) {
        BlockDesk desk(word);
        EXPECT_TRUE(desk.ask([&] {
            desk.spoken();
            desk.enter();
            EXPECT_EQ(desk.boxText(u"Text1"), "1-5");
            EXPECT_EQ(desk.boxText(u"Text2"), "");
            EXPECT_EQ(desk.world.beeper.count, 1);
            desk.enter();
            EXPECT_EQ(desk.boxText(u"Text2"), items);
            EXPECT_EQ(desk.world.beeper.count, 2);
            EXPECT_THAT(desk.spoken(), IsEmpty()) << "the program's own texts are not said";
            desk.enter();
        }));
        EXPECT_EQ(desk.answer(0), "1-5");
        EXPECT_EQ(desk.answer(1), items);
    }
}

TEST(FrmBROCK, AFaultIsToldAndTheUserIsBackInTheFaultyBox) {
    BlockDesk desk;
    desk.ask([&] {
        desk.keys.type(u"1-2-3");
        desk.key(plainKey(Key::tab));
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "記録ﾌﾞﾛｯｸ指定のあやまり");
            EXPECT_THAT(desk.spoken(), testing::Contains(HasSubstr("ブロック中に１以上の「－」がある")));
            desk.world.later();
            desk.enterAnew();
        });
        desk.enter();
        desk.world.later();
        EXPECT_EQ(desk.focus(), "Text1");
        EXPECT_EQ(desk.boxText(u"Text1"), "1-2-3");
        EXPECT_THAT(desk.spoken(), IsEmpty()) << "the focus goes back without a word";
        desk.key(plainKey(Key::backspace));
        desk.key(plainKey(Key::backspace));
        desk.key(plainKey(Key::tab));
        desk.keys.type(u"0-3");
        desk.key(plainKey(Key::tab));
        desk.inNextModal([&] {
            EXPECT_EQ(desk.title(), "項目ﾌﾞﾛｯｸ指定のあやまり");
            desk.enterAnew();
        });
        desk.enter();
        EXPECT_EQ(desk.focus(), "Text2");
        desk.key(plainKey(Key::escape));
    });
    EXPECT_EQ(desk.answer(1), "");
}

TEST(FrmBROCK, ItsButtonsRunAndGiveUp) {
    BlockDesk desk;
    EXPECT_TRUE(desk.ask([&] {
        desk.keys.type(u"1");
        desk.key(plainKey(Key::tab));
        desk.keys.type(u"0");
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("実行(CR)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.enter();
    }));
    EXPECT_FALSE(desk.ask([&] {
        desk.keys.type(u"1");
        desk.key(plainKey(Key::tab));
        desk.key(plainKey(Key::tab));
        EXPECT_THAT(desk.spokenBy(plainKey(Key::tab)), ElementsAre("中止(ESC)､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"));
        desk.enter();
    }));
}
