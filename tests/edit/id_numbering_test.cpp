#include "edit/id_numbering.h"

#include "edit/edit_world.h"
#include "edit/jumps.h"
#include "platform/failure.h"

namespace {

struct NumberWorld : EditWorld {
    explicit NumberWorld(TextView align = u"L", int records = 8) {
        table({{u"ID", align, 5}, {u"氏名", u"L", 10}}, {});
        std::string bytes;
        for (int record = 1; record <= records; ++record) {
            bytes += std::string(254, ' ') + "\r\n";
        }
        writeFile("t.txt", bytes);
        openTable("t.txt");
        show();
    }
    void start(TextView answer) {
        dialogs.texts = {Text(answer)};
        mnuIDAUTO(edit);
    }
    bool isOn() const { return zormod.input.idAutoOn == 1; }
    std::string label() const { return utf8(edit.Label13); }
    std::string id(int record) const { return onDisk(record, 5); }
};

} // namespace

TEST(IdNumbering, AsksForTheFirstNumberAndWritesItIntoTheRow) {
    NumberWorld world;
    world.stand(3, 1);
    world.start(u"12");
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "ID番号の初期値");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt), "ＩＤ項目は自動更新されます。初期値を入れて下さい。");
    EXPECT_EQ(utf8(world.dialogs.questions[0].defaultText), "1");
    EXPECT_TRUE(world.isOn());
    EXPECT_EQ(world.cell(0), "12   ");
    EXPECT_EQ(world.id(3), "     ") << "the disk gets it when the record is left";
    EXPECT_EQ(world.screen.rowRedraws, 1);
}

TEST(IdNumbering, BehindItsQuestionTheUserHearsThatTheInputBoxIsBack) {
    for (const TextView answer : {u"12", u""}) {
        NumberWorld world;
        world.show(1);
        world.start(answer);
        EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
    }
}

TEST(IdNumbering, TheNumberIsAlignedAsTheItemIs) {
    NumberWorld world(u"R");
    world.start(u" １２ ");
    EXPECT_EQ(world.cell(0), "   12");
}

TEST(IdNumbering, TheMarkStandsBehindUntilTheNextStatusUpdatePutsItInFront) {
    NumberWorld world;
    world.start(u"7");
    EXPECT_EQ(world.label(), "7    (自動更新！)");
    world.press(Key::right);
    EXPECT_EQ(world.label(), "(自動更新！)7    ");
}

TEST(IdNumbering, SwitchingOffTakesTheMarkAwayWhereverItStands) {
    NumberWorld world;
    world.start(u"7");
    mnuIDAUTO(world.edit);
    EXPECT_FALSE(world.isOn());
    EXPECT_EQ(world.label(), "7    ");
    world.start(u"8");
    world.press(Key::right);
    mnuIDAUTO(world.edit);
    EXPECT_EQ(world.label(), "8    ");
    EXPECT_EQ(world.dialogs.questions.size(), 2U) << "switching off asks nothing";
}

TEST(IdNumbering, AnEmptyAnswerLeavesItOff) {
    NumberWorld world;
    world.start(u"");
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.cell(0), "     ");
    EXPECT_EQ(world.label(), "     ");
}

TEST(IdNumbering, DownWritesOneMoreAndUpOneLess) {
    NumberWorld world;
    world.stand(4, 1);
    world.start(u"100");
    world.press(Key::down);
    world.press(Key::down);
    EXPECT_EQ(world.id(4), "100  ");
    EXPECT_EQ(world.id(5), "101  ");
    EXPECT_EQ(world.cell(0), "102  ");
}

TEST(IdNumbering, CtrlPCountsOnAsDownDoes) {
    NumberWorld world;
    world.stand(3, 1);
    world.start(u"5");
    mnuCTRLP(world.edit);
    EXPECT_EQ(world.record(), 4);
    EXPECT_EQ(world.id(3), "5    ");
    EXPECT_EQ(world.cell(0), "6    ");
    EXPECT_TRUE(world.isOn());
}

TEST(IdNumbering, GoingUpWritesTheNumberLessOneOverTheRecordAbove) {
    NumberWorld world;
    world.stand(5, 1);
    world.start(u"20");
    world.press(Key::up);
    EXPECT_EQ(world.record(), 4);
    EXPECT_EQ(world.cell(0), "19   ");
    world.press(Key::up);
    EXPECT_EQ(world.id(4), "19   ");
}

TEST(IdNumbering, TheNumberIsASingle) {
    NumberWorld world;
    world.start(u"10000000");
    EXPECT_EQ(world.cell(0), "1E+07");
    world.press(Key::down);
    mnuIDAUTO(world.edit);
    world.start(u".5");
    EXPECT_EQ(world.cell(0), ".5   ");
}

TEST(IdNumbering, ANumberBeyondASingleFailsAndStaysOff) {
    NumberWorld world;
    EXPECT_THROW(world.start(u"1E+39"), RuntimeFailure);
    EXPECT_FALSE(world.isOn());
    EXPECT_EQ(world.cell(0), "     ");
}

TEST(IdNumbering, JumpsEndIt) {
    for (const auto& jump : {mnuEXTD, mnuEXTTOP, mnuHOME, pageUp, pageDown}) {
        NumberWorld world;
        world.stand(3, 1);
        world.start(u"1");
        jump(world.edit);
        EXPECT_EQ(world.zormod.input.idAutoOn, 0);
        EXPECT_EQ(world.label().find("自動更新"), std::string::npos);
    }
    NumberWorld world;
    world.start(u"1");
    world.dialogs.texts = {u"5"};
    mnuJUMP(world.edit);
    EXPECT_FALSE(world.isOn());
}

TEST(IdNumbering, ATableWithoutItemsCannotHaveIt) {
    EditWorld world;
    world.table({{u"ID", u"L", 20}}, {{u"a"}});
    world.show();
    world.dialogs.expectedMessages = 1;
    mnuIDAUTO(world.edit);
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).text), "項目区切り数０の場合は、この機能は使えません");
    EXPECT_EQ(utf8(world.dialogs.messages.at(0).title), "注意");
    EXPECT_EQ(world.zormod.input.idAutoOn, 0);
    EXPECT_EQ(world.screen.focusCalls, 1) << "the input box says that it is back";
}

TEST(IdNumbering, WithoutATableItBeeps) {
    EditWorld world;
    mnuIDAUTO(world.edit);
    EXPECT_EQ(world.beeper.count, 1);
}
