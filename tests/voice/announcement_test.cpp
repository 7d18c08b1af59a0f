#include "voice/announcement.h"

#include "support/test_world.h"

#include <gtest/gtest.h>

namespace {

std::string announced(const SpokenControl& control, TextView label) {
    return utf8(controlAnnouncement(control, label));
}

using Said = std::vector<std::string>;

} // namespace

TEST(Announcement, ATextBoxSaysItsContentsAndThenItsLabel) {
    EXPECT_EQ(announced({.text = u"山田", .caption = u"unsaid"}, u"データ入力ﾃｷｽﾄﾎﾞｯｸｽ"), "山田､データ入力ﾃｷｽﾄﾎﾞｯｸｽ");
}

TEST(Announcement, AButtonSaysItsCaptionAndThenItsLabel) {
    EXPECT_EQ(announced({.text = u"unsaid", .caption = u"終了"}, u"ｺﾏﾝﾄﾞﾎﾞﾀﾝ"), "終了､ｺﾏﾝﾄﾞﾎﾞﾀﾝ");
}

TEST(Announcement, ACheckBoxSaysItsStateLast) {
    EXPECT_EQ(announced({.caption = u"逆順", .value = 1}, u"ﾁｪｯｸﾎﾞｯｸｽ"), "逆順ﾁｪｯｸﾎﾞｯｸｽ､チェック");
    EXPECT_EQ(announced({.caption = u"逆順", .value = 0}, u"ﾁｪｯｸﾎﾞｯｸｽ"), "逆順ﾁｪｯｸﾎﾞｯｸｽ､ノーチェック");
}

TEST(Announcement, AGreyCheckBoxIsToldAsNotChecked) {
    EXPECT_EQ(announced({.caption = u"逆順", .value = 2}, u"ﾁｪｯｸﾎﾞｯｸｽ"), "逆順ﾁｪｯｸﾎﾞｯｸｽ､ノーチェック");
}

TEST(Announcement, OtherLabelsGoOutAsTheyAre) {
    const SpokenControl control{.text = u"t", .caption = u"c", .value = 1};
    EXPECT_EQ(announced(control, u"データのみ読み上げ"), "データのみ読み上げ");
    EXPECT_EQ(announced(control, u""), "");
}

TEST(Announcement, OtherSpellingsOfTheKindsArePlainSentences) {
    const SpokenControl control{.text = u"t", .caption = u"c", .value = 1};
    for (const TextView label : {u"ｺﾏﾝﾄﾞぼたん", u"こまんどぼたん", u"コマンドﾎﾞﾀﾝ", u"OKコマンドボタン",
                                 u"検索コマンドボタン", u"記録番号テキストボックス", u"チェックボックス"}) {
        EXPECT_EQ(announced(control, label), utf8(label));
    }
}

TEST(Announcement, TheTextBoxWordWinsOverTheOthers) {
    EXPECT_EQ(announced({.text = u"t", .caption = u"c"}, u"ｺﾏﾝﾄﾞﾎﾞﾀﾝﾃｷｽﾄﾎﾞｯｸｽ"), "t､ｺﾏﾝﾄﾞﾎﾞﾀﾝﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(announced({.text = u"t", .caption = u"c"}, u"ﾁｪｯｸﾎﾞｯｸｽｺﾏﾝﾄﾞﾎﾞﾀﾝ"), "c､ﾁｪｯｸﾎﾞｯｸｽｺﾏﾝﾄﾞﾎﾞﾀﾝ");
}

TEST(TalkS, AnEmptyBoxSaysItsLabelWithoutTheComma) {
    TestWorld world;
    world.zormod.speech.speechMode = 1;
    talkS(world.zormod, SpokenControl{}, u"ﾃｷｽﾄﾎﾞｯｸｽ");
    EXPECT_EQ(world.takeSpoken(), Said{"ﾃｷｽﾄﾎﾞｯｸｽ"});
}

TEST(TalkS, ComesThroughTheThrottle) {
    TestWorld world;
    world.zormod.speech.speechMode = 1;
    talkS(world.zormod, SpokenControl{.caption = u"OK"}, u"ｺﾏﾝﾄﾞﾎﾞﾀﾝ");
    talkS(world.zormod, SpokenControl{.caption = u"NO"}, u"ｺﾏﾝﾄﾞﾎﾞﾀﾝ");
    talkS(world.zormod, u"too early");
    EXPECT_EQ(world.takeSpoken(), Said{"OK､ｺﾏﾝﾄﾞﾎﾞﾀﾝ"});
    world.later();
    talkS(world.zormod, u"in time");
    EXPECT_EQ(world.takeSpoken(), Said{"in time"});
}

TEST(TalkS, IsSilentWithSpeechOff) {
    TestWorld world;
    talkS(world.zormod, SpokenControl{.caption = u"OK"}, u"ｺﾏﾝﾄﾞﾎﾞﾀﾝ");
    talkS(world.zormod, u"sentence");
    EXPECT_EQ(world.takeSpoken(), Said{});
    EXPECT_EQ(world.clipboard.reads, 0);
}

TEST(TalkS, ASentenceThatHoldsTheWordOfAKindIsStillASentence) {
    TestWorld world;
    world.zormod.speech.speechMode = 1;
    talkS(world.zormod, u"[はい](Y)ｺﾏﾝﾄﾞﾎﾞﾀﾝ");
    EXPECT_EQ(world.takeSpoken(), Said{"[はい](Y)ｺﾏﾝﾄﾞﾎﾞﾀﾝ"});
}
