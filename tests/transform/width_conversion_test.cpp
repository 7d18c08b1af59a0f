#include "transform/width_conversion.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using Table = std::map<char16_t, Text>;

/// Adds `count` characters from `source` on that map to those from `result` on.
void addRun(Table& table, char16_t source, char16_t result, int count) {
    for (int i = 0; i < count; ++i) {
        table[static_cast<char16_t>(source + i)] = Text(1, static_cast<char16_t>(result + i));
    }
}

/// Every unit that stands in the table gives its result, every other one itself.
void expectTable(Text (*convert)(TextView), const Table& table) {
    for (unsigned value = 0; value <= 0xFFFF; ++value) {
        const auto unit = static_cast<char16_t>(value);
        const auto found = table.find(unit);
        ASSERT_EQ(convert(Text(1, unit)), found == table.end() ? Text(1, unit) : found->second) << std::hex << value;
    }
}

} // namespace

TEST(ToHalfWidth, ConvertsEachEntryOfItsTableAndNothingElse) {
    Table table{
        {u'＞', u">"},  {u'］', u"]"}, {u'：', u":"},     {u'＜', u"<"}, {u'［', u"["}, {u'；', u";"}, {u'＝', u"="},
        {u'．', u"."},  {u'，', u","}, {u'\u3000', u" "}, {u'＾', u"^"}, {u'、', u"､"}, {u'／', u"/"}, {u'＠', u"@"},
        {u'。', u"｡"},  {u'＋', u"+"}, {u'｜', u"|"},     {u'＃', u"#"}, {u'＊', u"*"}, {u'－', u"-"}, {u'％', u"%"},
        {u'￥', u"\\"}, {u'」', u"｣"}, {u'＆', u"&"},     {u'（', u"("}, {u'「', u"｢"}, {u'＿', u"_"}, {u'）', u")"},
        {u'？', u"?"},  {u'・', u"･"}, {u'！', u"!"},
    };
    ASSERT_EQ(table.size(), 31u);
    addRun(table, u'０', u'0', 10);
    addRun(table, u'Ａ', u'A', 26);
    addRun(table, u'ａ', u'a', 26);
    expectTable(toHalfWidth, table);
}

TEST(ToFullWidth, ConvertsEachEntryOfItsTableAndNothingElse) {
    Table table{
        {u'>', u"＞"}, {u'[', u"［"}, {u':', u"："}, {u'<', u"＜"},  {u'.', u"．"}, {u';', u";"},
        {u'=', u"＝"}, {u'^', u"＾"}, {u'､', u"、"}, {u' ', u"  "},  {u'@', u"＠"}, {u'｡', u"。"},
        {u'/', u"／"}, {u'|', u"｜"}, {u'#', u"＃"}, {u'+', u"＋"},  {u'-', u"ー"}, {u'%', u"％"},
        {u'*', u"＊"}, {u'｣', u"」"}, {u'&', u"＆"}, {u'\\', u"￥"}, {u'｢', u"「"}, {u'_', u"＿"},
        {u']', u"］"}, {u'?', u"？"}, {u'･', u"・"}, {u'!', u"！"},  {u'，', u","},
    };
    ASSERT_EQ(table.size(), 29u);
    addRun(table, u'0', u'０', 10);
    addRun(table, u'A', u'Ａ', 26);
    addRun(table, u'a', u'ａ', 26);
    expectTable(toFullWidth, table);
}

TEST(KanaToHalf, ConvertsEachEntryOfItsTableAndNothingElse) {
    const Table table{
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
    ASSERT_EQ(table.size(), 75u);
    expectTable(kanaToHalf, table);
}

TEST(KanaToFull, ConvertsEachEntryOfItsTableAndNothingElse) {
    const Table table{
        {u'ｱ', u"ア"}, {u'ｲ', u"イ"}, {u'ｳ', u"ウ"}, {u'ｴ', u"エ"}, {u'ｵ', u"オ"},  {u'ｶ', u"カ"},  {u'ｷ', u"キ"},
        {u'ｸ', u"ク"}, {u'ｹ', u"ケ"}, {u'ｺ', u"コ"}, {u'ｻ', u"サ"}, {u'ｼ', u"シ"},  {u'ｽ', u"ス"},  {u'ｾ', u"セ"},
        {u'ｿ', u"ソ"}, {u'ﾀ', u"タ"}, {u'ﾁ', u"チ"}, {u'ﾂ', u"ツ"}, {u'ﾃ', u"テ"},  {u'ﾄ', u"ト"},  {u'ﾅ', u"ナ"},
        {u'ﾆ', u"ニ"}, {u'ﾇ', u"ヌ"}, {u'ﾈ', u"ネ"}, {u'ﾉ', u"ノ"}, {u'ﾊ', u"ハ"},  {u'ﾋ', u"ヒ"},  {u'ﾌ', u"フ"},
        {u'ﾍ', u"ヘ"}, {u'ﾎ', u"ホ"}, {u'ﾏ', u"マ"}, {u'ﾐ', u"ミ"}, {u'ﾑ', u"ム "}, {u'ﾒ', u"メ"},  {u'ﾓ', u"モ"},
        {u'ﾔ', u"ヤ"}, {u'ﾕ', u"ユ"}, {u'ﾖ', u"ヨ"}, {u'ﾗ', u"ラ"}, {u'ﾘ', u"リ"},  {u'ﾙ', u"ル"},  {u'ﾚ', u"レ"},
        {u'ﾛ', u"ロ"}, {u'ﾜ', u"ワ"}, {u'ﾝ', u"ン"}, {u'ｧ', u"ァ"}, {u'ｨ', u"ィ"},  {u'ｩ', u"ゥ"},  {u'ｪ', u"ェ"},
        {u'ｫ', u"ォ"}, {u'ｬ', u"ャ"}, {u'ｭ', u"ュ"}, {u'ｯ', u"ッ"}, {u'ヲ', u"．"}, {u'ヂ', u"ｼﾞ"},
    };
    ASSERT_EQ(table.size(), 55u);
    expectTable(kanaToFull, table);
}

TEST(ToHalfWidth, CleansTypedNumbersAndComparisonSigns) {
    EXPECT_EQ(toHalfWidth(u"１２．５"), u"12.5");
    EXPECT_EQ(toHalfWidth(u"＞＝"), u">=");
    EXPECT_EQ(toHalfWidth(u"\u3000\u3000"), u"  ");
    EXPECT_EQ(toHalfWidth(u""), u"");
}

TEST(ToHalfWidth, LeavesKanjiAndKana) {
    EXPECT_EQ(toHalfWidth(u"漢ガｶﾞ"), u"漢ガｶﾞ");
}

TEST(ToFullWidth, MakesTheMinusALongVowelMark) {
    EXPECT_EQ(toFullWidth(u"1-2"), u"１ー２");
}

TEST(ToFullWidth, DoublesBlanks) {
    EXPECT_EQ(toFullWidth(u"a b"), u"ａ  ｂ");
}

TEST(ToFullWidth, LeavesBracketsCommaAndSemicolonHalfWidthAndTurnsTheFullWidthComma) {
    EXPECT_EQ(toFullWidth(u"(,);"), u"(,);");
    EXPECT_EQ(toFullWidth(u"，"), u",");
}

TEST(ToHalfWidth, DoesNotUndoToFullWidth) {
    EXPECT_EQ(toHalfWidth(toFullWidth(u"1 -;")), u"1  ー;");
}

TEST(KanaToHalf, TurnsGaIntoASmallTsuAndPutsABlankBehindMu) {
    EXPECT_EQ(kanaToHalf(u"ガム"), u"ｯﾑ ");
}

TEST(KanaToHalf, GivesDeTwoMarks) {
    EXPECT_EQ(kanaToHalf(u"デ"), u"ﾃﾞﾞ");
}

TEST(KanaToHalf, LeavesTheHalfVoicedRowAndVu) {
    EXPECT_EQ(kanaToHalf(u"パピプペポヴ"), u"パピプペポヴ");
    EXPECT_EQ(kanaToHalf(u"パﾟ"), u"パﾟ");
}

TEST(KanaToFull, NeverJoinsAMarkToItsKana) {
    EXPECT_EQ(kanaToFull(u"ｶﾞ"), u"カﾞ");
    EXPECT_EQ(kanaToFull(u"ﾊﾟ"), u"ハﾟ");
}

TEST(KanaToFull, KeepsItsOddEntries) {
    EXPECT_EQ(kanaToFull(u"ﾑ"), u"ム ");
    EXPECT_EQ(kanaToFull(u"ｦｮ"), u"ｦｮ");
    EXPECT_EQ(kanaToFull(u"ヲヂョ"), u"．ｼﾞョ");
}

TEST(RemoveBlanks, DropsBothKindsOfBlanksEverywhere) {
    EXPECT_EQ(removeBlanks(u"  a b\u3000c \u3000"), u"abc");
    EXPECT_EQ(removeBlanks(u" \u3000 "), u"");
    EXPECT_EQ(removeBlanks(u"a\tb"), u"a\tb");
}

TEST(TypedNumber, ReadsFullWidthDigitsAndBlanks) {
    EXPECT_EQ(typedNumber(u"１２．５"), 12.5);
    EXPECT_EQ(typedNumber(u"\u3000 －３ "), -3);
    EXPECT_EQ(typedNumber(u"１Ｅ２"), 100);
    EXPECT_EQ(typedNumber(u"abc"), 0);
    EXPECT_EQ(typedNumber(u""), 0);
    EXPECT_THROW(typedNumber(u"１Ｅ９９９"), RuntimeFailure);
}
