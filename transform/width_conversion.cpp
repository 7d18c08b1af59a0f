#include "transform/width_conversion.h"

#include "platform/number_reader.h"

#include <algorithm>

namespace {

/// What one character becomes.
struct Entry {
    char16_t source;
    TextView result;
};

// Cells converted years ago hold what these tables gave, and searches and codes are matched against them: every entry
// stays as it is, odd ones included.

constexpr Entry halfWidthSigns[] = {
    {u'＞', u">"},  {u'］', u"]"}, {u'：', u":"},     {u'＜', u"<"}, {u'［', u"["}, {u'；', u";"}, {u'＝', u"="},
    {u'．', u"."},  {u'，', u","}, {u'\u3000', u" "}, {u'＾', u"^"}, {u'、', u"､"}, {u'／', u"/"}, {u'＠', u"@"},
    {u'。', u"｡"},  {u'＋', u"+"}, {u'｜', u"|"},     {u'＃', u"#"}, {u'＊', u"*"}, {u'－', u"-"}, {u'％', u"%"},
    {u'￥', u"\\"}, {u'」', u"｣"}, {u'＆', u"&"},     {u'（', u"("}, {u'「', u"｢"}, {u'＿', u"_"}, {u'）', u")"},
    {u'？', u"?"},  {u'・', u"･"}, {u'！', u"!"},
};

// "-" becomes the long vowel mark, a blank two blanks, and the full-width comma the half-width one; "(", ")" and ","
// have no entry.
constexpr Entry fullWidthSigns[] = {
    {u'>', u"＞"}, {u'[', u"［"}, {u':', u"："}, {u'<', u"＜"},  {u'.', u"．"}, {u';', u";"},
    {u'=', u"＝"}, {u'^', u"＾"}, {u'､', u"、"}, {u' ', u"  "},  {u'@', u"＠"}, {u'｡', u"。"},
    {u'/', u"／"}, {u'|', u"｜"}, {u'#', u"＃"}, {u'+', u"＋"},  {u'-', u"ー"}, {u'%', u"％"},
    {u'*', u"＊"}, {u'｣', u"」"}, {u'&', u"＆"}, {u'\\', u"￥"}, {u'｢', u"「"}, {u'_', u"＿"},
    {u']', u"］"}, {u'?', u"？"}, {u'･', u"・"}, {u'!', u"！"},  {u'，', u","},
};

// The voiced "ga" becomes the small "tsu", "de" gets two marks, "mu" a blank behind it. The half-voiced row and "vu"
// have no entry and stay full width.
constexpr Entry halfWidthKana[] = {
    {u'ア', u"ｱ"},  {u'イ', u"ｲ"},  {u'ウ', u"ｳ"},  {u'エ', u"ｴ"},  {u'オ', u"ｵ"},  {u'カ', u"ｶ"},   {u'キ', u"ｷ"},
    {u'ク', u"ｸ"},  {u'ケ', u"ｹ"},  {u'コ', u"ｺ"},  {u'サ', u"ｻ"},  {u'シ', u"ｼ"},  {u'ス', u"ｽ"},   {u'セ', u"ｾ"},
    {u'ソ', u"ｿ"},  {u'タ', u"ﾀ"},  {u'チ', u"ﾁ"},  {u'ツ', u"ﾂ"},  {u'テ', u"ﾃ"},  {u'ト', u"ﾄ"},   {u'ナ', u"ﾅ"},
    {u'ニ', u"ﾆ"},  {u'ヌ', u"ﾇ"},  {u'ネ', u"ﾈ"},  {u'ノ', u"ﾉ"},  {u'ハ', u"ﾊ"},  {u'ヒ', u"ﾋ"},   {u'フ', u"ﾌ"},
    {u'ヘ', u"ﾍ"},  {u'ホ', u"ﾎ"},  {u'マ', u"ﾏ"},  {u'ミ', u"ﾐ"},  {u'ム', u"ﾑ "}, {u'メ', u"ﾒ"},   {u'モ', u"ﾓ"},
    {u'ヤ', u"ﾔ"},  {u'ユ', u"ﾕ"},  {u'ヨ', u"ﾖ"},  {u'ラ', u"ﾗ"},  {u'リ', u"ﾘ"},  {u'ル', u"ﾙ"},   {u'レ', u"ﾚ"},
    {u'ロ', u"ﾛ"},  {u'ワ', u"ﾜ"},  {u'ヲ', u"ｦ"},  {u'ン', u"ﾝ"},  {u'ァ', u"ｧ"},  {u'ィ', u"ｨ"},   {u'ゥ', u"ｩ"},
    {u'ェ', u"ｪ"},  {u'ォ', u"ｫ"},  {u'ャ', u"ｬ"},  {u'ュ', u"ｭ"},  {u'ョ', u"ｮ"},  {u'ッ', u"ｯ"},   {u'ガ', u"ｯ"},
    {u'ギ', u"ｷﾞ"}, {u'グ', u"ｸﾞ"}, {u'ゲ', u"ｹﾞ"}, {u'ゴ', u"ｺﾞ"}, {u'ザ', u"ｻﾞ"}, {u'ジ', u"ｼﾞ"},  {u'ズ', u"ｽﾞ"},
    {u'ゼ', u"ｾﾞ"}, {u'ゾ', u"ｿﾞ"}, {u'ダ', u"ﾀﾞ"}, {u'ヂ', u"ﾁﾞ"}, {u'ヅ', u"ﾂﾞ"}, {u'デ', u"ﾃﾞﾞ"}, {u'ド', u"ﾄﾞ"},
    {u'バ', u"ﾊﾞ"}, {u'ビ', u"ﾋﾞ"}, {u'ブ', u"ﾌﾞ"}, {u'ベ', u"ﾍﾞ"}, {u'ボ', u"ﾎﾞ"},
};

// Half-width "wo" and small "yo" have no entry; instead a full-width "wo" becomes a full stop and "di" a half-width
// "ji".
constexpr Entry fullWidthKana[] = {
    {u'ｱ', u"ア"}, {u'ｲ', u"イ"}, {u'ｳ', u"ウ"}, {u'ｴ', u"エ"}, {u'ｵ', u"オ"},  {u'ｶ', u"カ"},  {u'ｷ', u"キ"},
    {u'ｸ', u"ク"}, {u'ｹ', u"ケ"}, {u'ｺ', u"コ"}, {u'ｻ', u"サ"}, {u'ｼ', u"シ"},  {u'ｽ', u"ス"},  {u'ｾ', u"セ"},
    {u'ｿ', u"ソ"}, {u'ﾀ', u"タ"}, {u'ﾁ', u"チ"}, {u'ﾂ', u"ツ"}, {u'ﾃ', u"テ"},  {u'ﾄ', u"ト"},  {u'ﾅ', u"ナ"},
    {u'ﾆ', u"ニ"}, {u'ﾇ', u"ヌ"}, {u'ﾈ', u"ネ"}, {u'ﾉ', u"ノ"}, {u'ﾊ', u"ハ"},  {u'ﾋ', u"ヒ"},  {u'ﾌ', u"フ"},
    {u'ﾍ', u"ヘ"}, {u'ﾎ', u"ホ"}, {u'ﾏ', u"マ"}, {u'ﾐ', u"ミ"}, {u'ﾑ', u"ム "}, {u'ﾒ', u"メ"},  {u'ﾓ', u"モ"},
    {u'ﾔ', u"ヤ"}, {u'ﾕ', u"ユ"}, {u'ﾖ', u"ヨ"}, {u'ﾗ', u"ラ"}, {u'ﾘ', u"リ"},  {u'ﾙ', u"ル"},  {u'ﾚ', u"レ"},
    {u'ﾛ', u"ロ"}, {u'ﾜ', u"ワ"}, {u'ﾝ', u"ン"}, {u'ｧ', u"ァ"}, {u'ｨ', u"ィ"},  {u'ｩ', u"ゥ"},  {u'ｪ', u"ェ"},
    {u'ｫ', u"ォ"}, {u'ｬ', u"ャ"}, {u'ｭ', u"ュ"}, {u'ｯ', u"ッ"}, {u'ヲ', u"．"}, {u'ヂ', u"ｼﾞ"},
};

/// The distance from each half-width digit or letter to its full-width one.
constexpr char16_t widthDistance = u'\uFF10' - u'0';

bool isDigitOrLetter(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

template <typename Table> void appendByTable(Text& result, char16_t unit, const Table& table) {
    const auto found =
        std::find_if(std::begin(table), std::end(table), [unit](const Entry& e) { return e.source == unit; });
    if (found == std::end(table)) {
        result += unit;
    } else {
        result += found->result;
    }
}

template <typename Table> Text converted(TextView text, const Table& table) {
    Text result;
    for (const char16_t unit : text) {
        appendByTable(result, unit, table);
    }
    return result;
}

} // namespace

Text toHalfWidth(TextView text) {
    Text result;
    for (const char16_t unit : text) {
        const auto half = static_cast<char16_t>(unit - widthDistance);
        if (isDigitOrLetter(half)) {
            result += half;
        } else {
            appendByTable(result, unit, halfWidthSigns);
        }
    }
    return result;
}

Text toFullWidth(TextView text) {
    Text result;
    for (const char16_t unit : text) {
        if (isDigitOrLetter(unit)) {
            result += static_cast<char16_t>(unit + widthDistance);
        } else {
            appendByTable(result, unit, fullWidthSigns);
        }
    }
    return result;
}

Text kanaToHalf(TextView text) {
    return converted(text, halfWidthKana);
}

Text kanaToFull(TextView text) {
    return converted(text, fullWidthKana);
}

Text removeBlanks(TextView text) {
    Text result(text);
    std::erase_if(result, [](char16_t unit) { return unit == u' ' || unit == u'\u3000'; });
    return result;
}

double typedNumber(TextView text) {
    return Val(trimmed(toHalfWidth(text)));
}
