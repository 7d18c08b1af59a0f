#include "reader/sign_names.h"

#include <algorithm>
#include <iterator>

namespace {

struct Name {
    char16_t sign;
    TextView name;
};

constexpr Name letters[] = {
    {u'a', u"エー"}, {u'b', u"ビー"},   {u'c', u"シー"}, {u'd', u"ディー"}, {u'e', u"イー"},       {u'f', u"エフ"},
    {u'g', u"ジー"}, {u'h', u"エイチ"}, {u'i', u"アイ"}, {u'j', u"ジェー"}, {u'k', u"ケー"},       {u'l', u"エル"},
    {u'm', u"エム"}, {u'n', u"エヌ"},   {u'o', u"オー"}, {u'p', u"ピー"},   {u'q', u"キュー"},     {u'r', u"アール"},
    {u's', u"エス"}, {u't', u"ティー"}, {u'u', u"ユー"}, {u'v', u"ブイ"},   {u'w', u"ダブリュー"}, {u'x', u"エックス"},
    {u'y', u"ワイ"}, {u'z', u"ゼット"},
};

constexpr Name signs[] = {
    {u'%', u"パーセント"},
    {u'+', u"プラス"},
    {u'=', u"イコール"},
    {u'@', u"アットマーク"},
    {u'&', u"アンド"},
    {u'#', u"シャープ"},
    {u'$', u"ドル"},
    {u'\\', u"エン"},
    {u'_', u"アンダーバー"},
    {u'<', u"ショウナリ"},
    {u'>', u"ダイナリ"},
    {u'^', u"ヤマガタ"},
    {u'*', u"アスタリスク"},
    {u'/', u"スラッシュ"},
    {u'×', u"カケル"},
    {u'÷', u"ワル"},
    {u'≦', u"ショウナリイコール"},
    {u'≧', u"ダイナリイコール"},
    {u'≠', u"ノットイコール"},
    {u'○', u"マル"},
    {u'◯', u"マル"},
    {u'◎', u"ニジュウマル"},
    {u'●', u"クロマル"},
    {u'△', u"サンカク"},
    {u'▲', u"クロサンカク"},
    {u'□', u"シカク"},
    {u'■', u"クロシカク"},
    {u'☆', u"ホシ"},
    {u'★', u"クロボシ"},
    {u'→', u"ミギヤジルシ"},
    {u'←', u"ヒダリヤジルシ"},
    {u'↑', u"ウエヤジルシ"},
    {u'↓', u"シタヤジルシ"},
    {u'〒', u"ユウビン"},
    {u'℃', u"ド"},
    {u'※', u"コメジルシ"},
};

} // namespace

TextView signName(char16_t c) {
    if (c >= u'A' && c <= u'Z')
        c = static_cast<char16_t>(c - u'A' + u'a');
    const auto isIt = [c](const Name& each) { return each.sign == c; };
    if (const auto* letter = std::ranges::find_if(letters, isIt); letter != std::end(letters))
        return letter->name;
    const auto* sign = std::ranges::find_if(signs, isIt);
    return sign != std::end(signs) ? sign->name : TextView{};
}
