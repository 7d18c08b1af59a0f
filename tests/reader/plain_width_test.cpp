#include "reader/plain_width.h"

#include "platform/utf8.h"

#include <gtest/gtest.h>

namespace {

std::string plain(TextView text) { return toUtf8(plainWidth(text)); }

} // namespace

TEST(PlainWidth, HalfWidthKatakanaBecomeFullWidth) {
    EXPECT_EQ(plain(u"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜｦﾝ"),
              "アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワヲン");
    EXPECT_EQ(plain(u"ｧｨｩｪｫｬｭｮｯｰ｡｢｣､･"), "ァィゥェォャュョッー。「」、・");
}

TEST(PlainWidth, VoicingMarksAreJoined) {
    EXPECT_EQ(plain(u"ｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞｳﾞ"), "ガギグゲゴザジズゼゾダヂヅデドバビブベボヴ");
    EXPECT_EQ(plain(u"ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ"), "パピプペポ");
    EXPECT_EQ(plain(u"ｷﾞｮｳ"), "ギョウ");
}

TEST(PlainWidth, AVoicingMarkBehindWhatHasNoVoiceStays) {
    EXPECT_EQ(plain(u"ﾞｱﾞﾏﾟ"), "゛ア゛マ゜");
    EXPECT_EQ(plain(u"ガﾞ"), "ガ゛");
}

TEST(PlainWidth, FullWidthLettersDigitsAndSignsBecomeHalfWidth) {
    EXPECT_EQ(plain(u"ＡＺａｚ０９＋％！"), "AZaz09+%!");
}

TEST(PlainWidth, BlanksAndControlCharactersAreOneKindOfBlank) {
    EXPECT_EQ(plainWidth(TextView(u"a\tb\nc\0d　e", 9)), u"a b c d e");
}

TEST(PlainWidth, NumbersInRingsAndRomanOnesBecomeDigits) { EXPECT_EQ(plain(u"①⑩⑳Ⅳ"), "110204"); }

TEST(PlainWidth, RareFormsOfAKanjiBecomeTheUsualOnes) { EXPECT_EQ(plain(u"髙﨑渡邉"), "高崎渡辺"); }
