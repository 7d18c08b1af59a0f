#include "voice/character_names.h"

#include <algorithm>
#include <array>

namespace {

struct Name {
    char16_t ch;
    TextView reading;
};

/// Some of the names look like slips and are meant to be so: users know them by ear. The half-width semicolon is named
/// like a full-width sign, while the full-width semicolon, the full-width dollar sign, the half-voiced mark and U+FF0D
/// have no name at all.
constexpr std::array signs{
    Name{u' ', u"ﾊﾝｶｸ ｽﾍﾟｰｽ"},
    Name{u'!', u"ﾊﾝｶｸ 感嘆符 "},
    Name{u'"', u"ﾊﾝｶｸ ﾀﾞﾌﾞﾙｺｰﾃｰｼｮﾝ"},
    Name{u'#', u"ﾊﾝｶｸ ｼｬｰﾌﾟ"},
    Name{u'$', u"ﾊﾝｶｸ ﾄﾞﾙ"},
    Name{u'%', u"ﾊﾝｶｸ ﾊﾟｰｾﾝﾄ"},
    Name{u'&', u"ﾊﾝｶｸ ｱﾝﾄﾞ"},
    Name{u'\'', u"ﾊﾝｶｸ ｼﾝｸﾞﾙｺｰﾃｰｼｮﾝ"},
    Name{u'(', u"ﾊﾝｶｸ ｶｯｺﾊｼﾞﾒ"},
    Name{u')', u"ﾊﾝｶｸ ｶｯｺﾄｼﾞ"},
    Name{u'*', u"ﾊﾝｶｸ ｱｽﾀ"},
    Name{u'+', u"ﾊﾝｶｸ ﾌﾟﾗｽ"},
    Name{u',', u"ﾊﾝｶｸ ｺﾝﾏ"},
    Name{u'-', u"ﾊﾝｶｸ ﾏｲﾅｽ"},
    Name{u'.', u"ﾊﾝｶｸ ﾋﾟﾘｵﾄﾞ"},
    Name{u'/', u"ﾊﾝｶｸ ｽﾗｰ"},
    Name{u':', u"ﾊﾝｶｸ ｺﾛﾝ"},
    Name{u';', u"ｾﾐｺﾛﾝ"},
    Name{u'<', u"ﾊﾝｶｸ ｼｮｳﾅﾘ"},
    Name{u'=', u"ﾊﾝｶｸ ｲｺｰﾙ"},
    Name{u'>', u"ﾊﾝｶｸ ﾀﾞｲﾅﾘ"},
    Name{u'?', u"ﾊﾝｶｸ ｷﾞﾓﾝﾌ"},
    Name{u'@', u"ﾊﾝｶｸ ｱｯﾄﾏｰｸ"},
    Name{u'[', u"ﾊﾝｶｸ ｶｸｶｯｺﾊｼﾞﾒ"},
    Name{u'\\', u"ﾊﾝｶｸ ｴﾝ"},
    Name{u']', u"ﾊﾝｶｸ ｶｸｶｯｺﾄｼﾞ"},
    Name{u'^', u"ﾊﾝｶｸ ﾍﾞｷｼﾞｮｳ"},
    Name{u'_', u"ﾊﾝｶｸ ｱﾝﾀﾞｰﾊﾞ"},
    Name{u'`', u"ﾊﾝｶｸ ｱｸｾﾝﾄﾏｰｸ"},
    Name{u'{', u"ﾊﾝｶｸ ﾀﾞｲｶｯｺﾊｼﾞﾒ"},
    Name{u'|', u"ﾊﾝｶｸ ﾀﾃｾﾝ"},
    Name{u'}', u"ﾊﾝｶｸ ﾀﾞｲｶｯｺﾄｼﾞ"},
    Name{u'~', u"ﾊﾝｶｸ ﾅｶﾃﾝ"},
    Name{u'―', u"ﾏｲﾅｽ"},
    Name{u'、', u"ﾃﾝ"},
    Name{u'。', u"ﾏﾙ"},
    Name{u'「', u"ｶｯｺﾊｼﾞﾒ"},
    Name{u'」', u"ｶｯｺﾄｼﾞ"},
    Name{u'ァ', u"ｶﾀｶﾅﾁｲｻｲ ｱ"},
    Name{u'ィ', u"ｶﾀｶﾅﾁｲｻｲ ｲ"},
    Name{u'ゥ', u"ｶﾀｶﾅﾁｲｻｲ ｳ"},
    Name{u'ェ', u"ｶﾀｶﾅﾁｲｻｲ ｴ"},
    Name{u'ォ', u"ｶﾀｶﾅﾁｲｻｲ ｵ"},
    Name{u'ッ', u"ｶﾀｶﾅﾁｲｻｲ ﾂ"},
    Name{u'ャ', u"ｶﾀｶﾅﾁｲｻｲ ﾔ"},
    Name{u'ュ', u"ｶﾀｶﾅﾁｲｻｲ ﾕ"},
    Name{u'ョ', u"ｶﾀｶﾅﾁｲｻｲ ﾖ"},
    Name{u'・', u"ﾅｶﾃﾝ"},
    Name{u'ー', u"ﾁｮｳｵﾝｷｺﾞｳ"},
    Name{u'！', u"ｶﾝﾀﾝﾌ"},
    Name{u'＃', u"ｲｹﾞﾀ"},
    Name{u'％', u"ﾊﾟｰｾﾝﾄ"},
    Name{u'＆', u"ｱﾝﾄﾞ"},
    Name{u'（', u"ｶｯｺﾊｼﾞﾒ"},
    Name{u'）', u"ｶｯｺﾄｼﾞ"},
    Name{u'＊', u"ｱｽﾀﾘｽｸ"},
    Name{u'＋', u"ﾌﾟﾗｽ"},
    Name{u'，', u"ｺﾝﾏ"},
    Name{u'．', u"ﾋﾟﾘｵﾄﾞ"},
    Name{u'／', u"ｽﾗｯｼｭ"},
    Name{u'：', u"ｺﾛﾝ"},
    Name{u'＜', u"ｼｮｳﾅﾘ"},
    Name{u'＝', u"ｲｺｰﾙ"},
    Name{u'＞', u"ﾀﾞｲﾅﾘ"},
    Name{u'？', u"ｷﾞﾓﾝﾌ"},
    Name{u'＠', u"ｱｯﾄﾏｰｸ"},
    Name{u'［', u"ｶｸｶｯｺﾊｼﾞﾒ"},
    Name{u'］', u"ｶｸｶｯｺﾄｼﾞ"},
    Name{u'｛', u"ﾀﾞｲｶｯｺﾊｼﾞﾒ"},
    Name{u'｜', u"ﾀﾃｾﾝ"},
    Name{u'｝', u"ﾀﾞｲｶｯｺﾄｼﾞ"},
    Name{u'～', u"ﾅﾐｾﾝのｶﾗ"},
    Name{u'｡', u"ﾊﾝｶｸﾏﾙ"},
    Name{u'｢', u"ﾊﾝｶｸｶｷﾞｶｯｺﾊｼﾞﾒ"},
    Name{u'｣', u"ﾊﾝｶｸｶｷﾞｶｯｺﾄｼﾞ"},
    Name{u'､', u"ﾊﾝｶｸﾃﾝ"},
    Name{u'ｧ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ｱ"},
    Name{u'ｨ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ｲ"},
    Name{u'ｩ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ｳ"},
    Name{u'ｪ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ｴ"},
    Name{u'ｫ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ｵ"},
    Name{u'ｬ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ﾔ"},
    Name{u'ｭ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ﾕ"},
    Name{u'ｮ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ﾖ"},
    Name{u'ｯ', u"ﾊﾝｶｸｶﾀｶﾅﾁｲｻｲ ﾂ"},
    Name{u'ｰ', u"ﾊﾝｶｸﾁｮｳｵﾝｷｺﾞｳ"},
    Name{u'ﾞ', u"ﾊﾝｶｸﾀﾞｸﾃﾝ"},
    Name{u'￥', u"ｴﾝ"},
};
static_assert(std::ranges::is_sorted(signs, {}, &Name::ch), "charReading looks names up by bisection");

/// The names of A to Z, shared by their four forms.
constexpr std::array<TextView, 26> letters{
    u"ｴｰ", u"ﾋﾞｰ", u"ｼｰ",  u"ﾃﾞｨｰ", u"ｲｰ",  u"ｴﾌ", u"ｼﾞｰ", u"ｴｯﾁ", u"ｱｲ",  u"ｼﾞｪｲ",    u"ｹｰ",   u"ｴﾙ", u"ｴﾑ",
    u"ｴﾇ", u"ｵｰ",  u"ﾋﾟｰ", u"ｷｭｳ",  u"ｱｰﾙ", u"ｴｽ", u"ﾃｨｰ", u"ﾕｰ",  u"ﾌﾞｨ", u"ﾀﾞﾌﾞﾘｭｰ", u"ｴｯｸｽ", u"ﾜｲ", u"ｾﾞｯﾄ",
};

constexpr bool isWithin(char16_t ch, char16_t first, char16_t last) {
    return ch >= first && ch <= last;
}

Text letterName(TextView prefix, char16_t ch, char16_t first) {
    return Text(prefix).append(letters[ch - first]);
}

} // namespace

Text charReading(TextView ch) {
    if (ch.size() != 1) {
        return Text(ch);
    }
    const char16_t unit = ch.front();
    const auto sign = std::ranges::lower_bound(signs, unit, {}, &Name::ch);
    if (sign != signs.end() && sign->ch == unit) {
        return Text(sign->reading);
    }
    if (isWithin(unit, u'A', u'Z')) {
        return letterName(u"ｵｵﾓｼﾞ", unit, u'A');
    }
    if (isWithin(unit, u'a', u'z')) {
        return letterName(u"", unit, u'a');
    }
    if (isWithin(unit, u'Ａ', u'Ｚ')) {
        return letterName(u"ｾﾞﾝｶｸｵｵﾓｼﾞ", unit, u'Ａ');
    }
    if (isWithin(unit, u'ａ', u'ｚ')) {
        return letterName(u"ｾﾞﾝｶｸｺﾓｼﾞ", unit, u'ａ');
    }
    if (unit == u'ｦ' || isWithin(unit, u'ｱ', u'ﾝ')) {
        return Text(u"ﾊﾝｶｸｶﾀｶﾅ").append(ch);
    }
    if (isWithin(unit, u'０', u'９')) {
        return Text(u"ｾﾞﾝｶｸ ").append(ch);
    }
    if (isWithin(unit, u'ア', u'ン')) {
        return Text(u"ｶﾀｶﾅ ").append(ch);
    }
    return Text(ch);
}
