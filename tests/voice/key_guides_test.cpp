#include "voice/key_guides.h"

#include "support/doubles.h"

#include <gmock/gmock.h>

TEST(KeyGuides, AKeyIsReadWithWhatIsHeldWithItAndItsFunction) {
    const KeyGuide& alt = keyGuides().front();
    EXPECT_EQ(utf8(alt.form), "frmALT");
    EXPECT_EQ(utf8(guideKeyReading(alt.keys.front())), "ｱﾙﾄﾌﾟﾗｽ  F。ﾌｧｲﾙﾒﾆｭｰ(読み込み.印字等)");
}

TEST(KeyGuides, AnArrowOfARowThatNamesSeveralIsAKeyOfItsOwn) {
    const auto keys = keyGuides()[0].keys;
    EXPECT_EQ(utf8(guideKeyReading(keys[15])), "ｱﾙﾄﾌﾟﾗｽｼﾀﾔｼﾞﾙｼ↓。記録範囲指定開始");
    EXPECT_EQ(utf8(guideKeyReading(keys[16])), "ｱﾙﾄﾌﾟﾗｽｳｴﾔｼﾞﾙｼ↑。記録範囲指定開始");
}

TEST(KeyGuides, KeepTheWordsThatPromiseMoreThanTheProgramDoes) {
    const auto keys = keyGuides()[1].keys;
    EXPECT_EQ(utf8(keys.back().function), "今のｾﾙの項目番号、項目名､配置の音声案内ｃｔｒｌ＋ａｌｔ＋ｐと同機能");
    for (const GuideKey& key : keyGuides()[0].keys) {
        EXPECT_NE(utf8(guideKeyReading(key)).substr(0, utf8(u"ｱﾙﾄﾌﾟﾗｽ  R").size()), "ｱﾙﾄﾌﾟﾗｽ  R");
    }
}
