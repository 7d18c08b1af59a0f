#include "reader/plain_width.h"

#include "platform/number_text.h"

#include <cstddef>

namespace {

constexpr TextView fullForms = u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒ"
                               u"フヘホマミムメモヤユヨラリルレロワン゛゜";
constexpr char16_t firstHalf = u'｡';
constexpr char16_t lastHalf = u'ﾟ';
static_assert(fullForms.size() == lastHalf - firstHalf + 1);

constexpr TextView voiceable = u"カキクケコサシスセソタチツテトハヒフヘホかきくけこさしすせそたちつてとはひふへほ";
constexpr TextView halfVoiceable = u"ハヒフヘホはひふへほ";

bool isVoicing(char16_t c) {
    return c == u'ﾞ' || c == u'゛' || c == u'\u3099';
}
bool isHalfVoicing(char16_t c) {
    return c == u'ﾟ' || c == u'゜' || c == u'\u309A';
}

/// Joins a voicing mark to the last character of `out`; false if the two are no one sound.
bool joinVoicing(Text& out, char16_t mark) {
    if (out.empty())
        return false;
    char16_t& kana = out.back();
    if (isVoicing(mark) && voiceable.find(kana) != TextView::npos)
        kana = static_cast<char16_t>(kana + 1);
    else if (isHalfVoicing(mark) && halfVoiceable.find(kana) != TextView::npos)
        kana = static_cast<char16_t>(kana + 2);
    else if (isVoicing(mark) && kana == u'ウ')
        kana = u'ヴ';
    else
        return false;
    return true;
}

/// Two ways of writing one kanji, the rarer of which the dictionary doesn't know.
constexpr TextView rareForms = u"髙﨑德淸濵邊邉齋齊";
constexpr TextView usualForms = u"高崎徳清浜辺辺斎斉";
static_assert(rareForms.size() == usualForms.size());

char16_t plainForm(char16_t c) {
    if (const std::size_t form = rareForms.find(c); form != TextView::npos)
        return usualForms[form];
    if (c >= firstHalf && c <= lastHalf)
        return fullForms[c - firstHalf];
    if (c > u'\uFF00' && c < u'\uFF5F')
        return static_cast<char16_t>(c - u'\uFF00' + 0x20);
    if (c < u' ' || c == u'\x7F' || c == u'\u3000' || c == u'\u00A0' || (c >= u'\u2000' && c <= u'\u200F'))
        return u' ';
    if (c == u'−' || c == u'‐' || c == u'–')
        return u'-';
    if (c == u'￥' || c == u'¥')
        return u'\\';
    return c;
}

/// The number that is one character with its ring, or a Roman one; empty if it is none.
Text circledNumber(char16_t c) {
    if (c >= u'①' && c <= u'⑳')
        return plainNumber(c - u'①' + 1);
    if (c >= u'Ⅰ' && c <= u'Ⅻ')
        return plainNumber(c - u'Ⅰ' + 1);
    return {};
}

} // namespace

Text plainWidth(TextView text) {
    Text out;
    out.reserve(text.size());
    for (const char16_t c : text) {
        if (const Text number = circledNumber(c); !number.empty()) {
            out += number;
            continue;
        }
        if ((isVoicing(c) || isHalfVoicing(c)) && joinVoicing(out, c))
            continue;
        out += plainForm(c);
    }
    return out;
}
