#include "reader/table_words.h"

#include <algorithm>
#include <array>

namespace {

struct Reading {
    TextView written;
    TextView said;
};

constexpr std::array compounds{
    Reading{u"読み上OFF", u"ヨミアゲオフ"}, Reading{u"次項目", u"ジコウモク"},
    Reading{u"次記録", u"ジキロク"},        Reading{u"自働", u"ジドウ"},
    Reading{u"一行", u"イチギョウ"},        Reading{u"㈱", u"カブシキガイシャ"},
    Reading{u"㈲", u"ユウゲンガイシャ"},
};

struct Correction {
    TextView written;
    TextView wrong;
    TextView right;
};

constexpr std::array corrections{
    Correction{u"行", u"クダリ", u"ギョー"},
    Correction{u"表", u"オモテ", u"ヒョー"},
    Correction{u"叩き", u"ハタキ", u"タタキ"},
};

constexpr std::array counters{
    Reading{u"月", u"ガツ"},   Reading{u"日", u"ニチ"}, Reading{u"人", u"ニン"}, Reading{u"分", u"フン"},
    Reading{u"行", u"ギョー"}, Reading{u"字", u"ジ"},   Reading{u"名", u"メイ"}, Reading{u"点", u"テン"},
    Reading{u"本", u"ホン"},   Reading{u"号", u"ゴー"}, Reading{u"時", u"ジ"},   Reading{u"年", u"ネン"},
};

constexpr std::array latinWords{
    Reading{u"alt", u"オルト"},     Reading{u"box", u"ボックス"},      Reading{u"ctrl", u"コントロール"},
    Reading{u"del", u"デリート"},   Reading{u"down", u"ダウン"},       Reading{u"end", u"エンド"},
    Reading{u"enter", u"エンター"}, Reading{u"esc", u"エスケープ"},    Reading{u"function", u"ファンクション"},
    Reading{u"home", u"ホーム"},    Reading{u"ins", u"インサート"},    Reading{u"ok", u"オーケー"},
    Reading{u"shft", u"シフト"},    Reading{u"shift", u"シフト"},      Reading{u"tab", u"タブ"},
    Reading{u"up", u"アップ"},      Reading{u"window", u"ウィンドウ"},
};

char16_t small(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

} // namespace

Text withTableReadings(TextView piece) {
    Text out(piece);
    for (const Reading& compound : compounds) {
        for (std::size_t at = out.find(compound.written); at != Text::npos;
             at = out.find(compound.written, at + compound.said.size()))
            out.replace(at, compound.written.size(), compound.said);
    }
    return out;
}

TextView readingInTables(TextView written, TextView pronounced, bool isBehindDigit) {
    if (isBehindDigit) {
        for (const Reading& counter : counters) {
            if (counter.written == written)
                return counter.said;
        }
    }
    const TextView word = written.substr(std::min(written.find_first_not_of(u' '), written.size()));
    for (const Correction& each : corrections) {
        if (each.written == word && each.wrong == pronounced)
            return each.right;
    }
    return {};
}

TextView latinWordName(TextView word) {
    for (const Reading& each : latinWords) {
        if (std::ranges::equal(each.written, word, {}, {}, small))
            return each.said;
    }
    return {};
}
