#include "edit/input_limit.h"

#include "edit/edit_world.h"

namespace {

struct LimitWorld : EditWorld {
    LimitWorld() { numbered(3); }
    void ask(std::deque<Text> answers) {
        dialogs.texts = std::move(answers);
        mnuLIMIT(edit);
    }
    int limit() const { return zormod.input.inputLimit; }
    std::string label() const { return utf8(edit.Label8); }
};

} // namespace

TEST(InputLimit, IsAskedForAndShownOnYellow) {
    LimitWorld world;
    world.ask({u"４"});
    ASSERT_EQ(world.dialogs.questions.size(), 1U);
    EXPECT_EQ(utf8(world.dialogs.questions[0].title), "データ入力字数制限");
    EXPECT_EQ(utf8(world.dialogs.questions[0].prompt),
              "入力字数を制限します。入力字数を指定してください\r"
              " なおスペースｷｰ　又はＥｎｄｷｰを叩きますと字数制限時でも制限を一時解除出来ます。\r"
              "再度CTRL+bで字数制限は解除されます。");
    EXPECT_EQ(world.limit(), 4);
    EXPECT_EQ(world.label(), "入力字数制限:4");
    EXPECT_EQ(world.screen.grounds.at(PanelField::Label8), LabelGround::yellow);
}

TEST(InputLimit, OneToTwoHundredAndFortyNineIsTaken) {
    for (const auto& [answer, limit] : {std::pair(u"1", 1), std::pair(u"249", 249)}) {
        LimitWorld world;
        world.ask({answer});
        EXPECT_EQ(world.limit(), limit);
        EXPECT_EQ(world.beeper.count, 0);
    }
    LimitWorld world;
    world.ask({u"250", u"-1", u"99999", u"7"});
    EXPECT_EQ(world.beeper.count, 3);
    EXPECT_EQ(world.dialogs.questions.size(), 4U);
    EXPECT_EQ(world.limit(), 7);
}

TEST(InputLimit, NothingOrZeroOrAWordGivesUp) {
    for (const TextView answer : {u"", u"0", u"abc", u"  "}) {
        LimitWorld world;
        world.ask({Text(answer)});
        EXPECT_EQ(world.limit(), 0);
        EXPECT_EQ(world.beeper.count, 0);
        EXPECT_EQ(world.label(), "字数制限:項目幅") << "as the table was opened";
        EXPECT_TRUE(world.screen.grounds.empty());
    }
}

TEST(InputLimit, IsLiftedAfterAQuestionAndShownOnGreen) {
    LimitWorld world;
    world.ask({u"4"});
    world.dialogs.answers = {Answer::ok};
    mnuLIMIT(world.edit);
    EXPECT_EQ(utf8(world.dialogs.questions.at(1).prompt), "入力文字数を項目幅とします");
    EXPECT_EQ(world.limit(), 0);
    EXPECT_EQ(world.label(), "入力字数制限:項目幅");
    EXPECT_EQ(world.screen.grounds.at(PanelField::Label8), LabelGround::green);
}

TEST(InputLimit, StaysInForceIfTheQuestionIsNotConfirmed) {
    LimitWorld world;
    world.ask({u"4"});
    world.dialogs.answers = {Answer::cancel};
    mnuLIMIT(world.edit);
    EXPECT_EQ(world.limit(), 4);
    EXPECT_EQ(world.label(), "入力字数制限:4");
}

TEST(InputLimit, ALimitHeldBackLeavesRoomForANewOne) {
    LimitWorld world;
    world.ask({u"4"});
    world.space();
    ASSERT_EQ(world.edit.savedLimit, 4);
    world.ask({u"6"});
    EXPECT_EQ(world.limit(), 6);
    EXPECT_EQ(world.edit.savedLimit, 4);
}

TEST(InputLimit, TakesTheCellAsSoonAsItIsReached) {
    LimitWorld world;
    world.stand(1, 1);
    world.ask({u"4"});
    world.type(u"abcd");
    EXPECT_EQ(world.item(), 2);
    EXPECT_EQ(world.cell(1), "abcd      ");
}

TEST(InputLimit, BehindEachQuestionTheUserHearsThatTheInputBoxIsBack) {
    for (const auto& [before, answer] : {std::pair(u"", u"4"), std::pair(u"", u""), std::pair(u"4", u"")}) {
        LimitWorld world;
        world.ask({before});
        world.zormod.speech.speechMode = 1;
        world.forget();
        world.dialogs.answers = {Answer::cancel};
        world.ask({answer});
        EXPECT_EQ(world.takeSpoken(), Spoken{"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"});
    }
}

TEST(InputLimit, WithoutATableItBeeps) {
    EditWorld world;
    mnuLIMIT(world.edit);
    EXPECT_EQ(world.beeper.count, 1);
}
