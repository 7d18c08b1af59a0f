#include "voice/message_texts.h"

#include "support/doubles.h"

#include <gtest/gtest.h>

TEST(MessageTexts, AMessageOpensWithTwoPeriodsBeforeTheHint) {
    EXPECT_EQ(utf8(okOpeningText(u"保存しました")), "保存しました。。OKならCRを叩いてください。");
}

TEST(MessageTexts, TheDescriptionOfAMessageWritesTheHintWithSmallLetters) {
    EXPECT_EQ(utf8(okDescription(u"注意", u"保存しました")), "注意。保存しました。okならCRを叩いてください。");
}

TEST(MessageTexts, TheButtonOfAMessageRepeatsTheMessage) {
    EXPECT_EQ(utf8(okButtonReading(u"保存しました", u"OK(CR)")), "保存しました､OK(CR)コマンドﾎﾞﾀﾝ");
}

TEST(MessageTexts, AYesNoQuestionOpensWithItsKeys) {
    EXPECT_EQ(utf8(yesNoOpeningText(u"消しますか")),
              "消しますか。はい､はＹ、いいえ、はＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます");
}

TEST(MessageTexts, TheHintOnAWrongKeySpellsTheParticleAsItSounds) {
    EXPECT_EQ(utf8(yesNoKeyHint(u"消しますか")), "消しますか。はい､わＹ、いいえ、わＮ、ｷｬﾝｾﾙ　わ　esc　を　叩きます");
}

TEST(MessageTexts, FocusOfTheButtons) {
    EXPECT_EQ(utf8(okButtonFocus), "OKコマンドボタン");
    EXPECT_EQ(utf8(cancelButtonFocus), "キャンセルコマンドボタン");
    EXPECT_EQ(utf8(yesButtonFocus()), "[はい](Y)ｺﾏﾝﾄﾞﾎﾞﾀﾝ");
}

TEST(MessageTexts, TitleOfAQuestionWithoutAPrompt) {
    EXPECT_EQ(utf8(yesNoTitle), "はい／いいえ／ｷｬﾝｾﾙ");
}
