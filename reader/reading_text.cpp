#include "reader/reading_text.h"

#include "platform/utf8.h"
#include "reader/plain_width.h"
#include "reader/sign_names.h"
#include "reader/table_words.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr TextView longPause = u"。";
constexpr TextView shortPause = u"、";

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool isKatakana(char16_t c) {
    return (c >= u'ァ' && c <= u'ヺ') || c == u'ー';
}
bool isHiragana(char16_t c) {
    return c >= u'ぁ' && c <= u'ゖ';
}
bool isKanji(char16_t c) {
    return (c >= u'\u3400' && c <= u'\u9FFF') || (c >= u'\uF900' && c <= u'\uFAFF') || c == u'々';
}
/// Kanji beyond the first 65536 characters begin with one of these.
bool isRareKanji(char16_t c) {
    return c >= u'\xD840' && c <= u'\xD8FF';
}
bool isLatin(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
bool isLongPause(char16_t c) {
    return TextView(u"。．!?").find(c) != TextView::npos;
}

bool endsWithPause(const Text& out) {
    return out.ends_with(longPause) || out.ends_with(shortPause);
}

/// Puts sounds side by side: pauses swallow blanks and shorter pauses before them.
class KanaLine {
public:
    void sound(TextView kana) {
        if (gap_ && !out_.empty() && !endsWithPause(out_))
            out_ += u' ';
        gap_ = false;
        out_ += kana;
    }
    void blank() { gap_ = true; }
    void pause(TextView mark) {
        gap_ = false;
        if (out_.empty())
            return;
        if (out_.ends_with(shortPause) && mark == longPause)
            out_.pop_back();
        if (!endsWithPause(out_))
            out_ += mark;
    }
    bool endsWithDigit() const { return !gap_ && !out_.empty() && isDigit(out_.back()); }
    /// A short pause at the end would only make the next text come later.
    Text take() {
        if (out_.ends_with(shortPause))
            out_.pop_back();
        return std::move(out_);
    }

private:
    Text out_;
    bool gap_ = false;
};

bool isPronounceable(TextView kana) {
    return !kana.empty() && std::ranges::all_of(kana, isKatakana);
}

/// A text in which each word that has one was replaced by its pronunciation, and which characters came from that.
struct Reading {
    Text text;
    std::vector<bool> isPronunciation;
};

Text pronunciation(const SpokenWord& word, bool isBehindDigit) {
    // The object particle is written with a kana of its own and sounds like o.
    if (word.kind == u"助詞" && word.pronounced == u"ヲ")
        return u"オ";
    const TextView own = readingInTables(word.written, word.pronounced, isBehindDigit);
    return own.empty() ? word.pronounced : Text(own);
}

Reading readingOf(const std::vector<SpokenWord>& words) {
    Reading reading;
    for (const SpokenWord& word : words) {
        const bool isBehindDigit = !reading.text.empty() && isDigit(reading.text.back());
        const Text kana = pronunciation(word, isBehindDigit);
        // The dictionary has words for signs and single letters too; those have names of our own.
        const bool known = isPronounceable(kana) && std::ranges::none_of(word.written, [](char16_t c) {
                               return isDigit(c) || isLatin(c) || !signName(c).empty();
                           });
        // The blanks in front of a word come with it.
        const std::size_t blanks = std::min(word.written.find_first_not_of(u' '), word.written.size());
        const Text chosen = known ? word.written.substr(0, blanks) + kana : word.written;
        reading.text += chosen;
        for (const char16_t c : chosen)
            reading.isPronunciation.push_back(known && c != u' ');
    }
    return reading;
}

/// The Latin word that begins at `at`; empty in the middle of a word and where there is none.
TextView latinWordAt(TextView text, std::size_t at) {
    if (at > 0 && isLatin(text[at - 1]))
        return {};
    std::size_t end = at;
    while (end < text.size() && isLatin(text[end]))
        ++end;
    return text.substr(at, end - at);
}

/// True if the minus or dash at `at` is the sign of a number.
bool isMinus(TextView text, std::size_t at) {
    const bool isFirst = at == 0 || !(isDigit(text[at - 1]) || isLatin(text[at - 1]) || isKatakana(text[at - 1]));
    return text[at] == u'-' && isFirst && at + 1 < text.size() && isDigit(text[at + 1]);
}

/// True if it stands for a long vowel: typists without that mark at hand take the minus that looks like it.
bool isLongVowel(TextView text, std::size_t at) {
    return text[at] == u'-' && at > 0 && isKatakana(text[at - 1]) && at + 1 < text.size() && isKatakana(text[at + 1]);
}

/// Says what stands at `at` where it is no plain sound; returns how many characters that were.
std::size_t saySign(KanaLine& line, TextView text, std::size_t at) {
    const char16_t c = text[at];
    const bool digitBefore = line.endsWithDigit();
    const bool digitBehind = at + 1 < text.size() && isDigit(text[at + 1]);
    if (c == u'.' && digitBefore && digitBehind) {
        line.sound(u"テン");
        std::size_t end = at + 1;
        // One by one, or the fraction would be read as a number of its own.
        for (; end < text.size() && isDigit(text[end]); ++end) {
            line.sound(text.substr(end, 1));
            line.blank();
        }
        return end - at;
    }
    if (c == u',' && digitBefore && digitBehind)
        return 1;
    if (isLongVowel(text, at))
        line.sound(u"ー");
    else if (isMinus(text, at))
        line.sound(u"マイナス");
    else if (c == u'~' && digitBefore)
        line.sound(u"カラ");
    else if (const TextView name = signName(c); !name.empty())
        line.sound(name);
    else if (isKanji(c) || isRareKanji(c))
        line.sound(u"カンジ");
    else if (c == u' ')
        line.blank();
    else
        line.pause(isLongPause(c) ? longPause : shortPause);
    return isRareKanji(c) && at + 1 < text.size() ? 2 : 1;
}

} // namespace

Text kanaOf(const std::vector<SpokenWord>& words) {
    const Reading reading = readingOf(words);
    const TextView text = reading.text;
    KanaLine line;
    for (std::size_t at = 0; at < text.size();) {
        const char16_t c = text[at];
        const TextView latin = latinWordAt(text, at);
        if (reading.isPronunciation[at] || isKatakana(c) || isDigit(c)) {
            line.sound(text.substr(at++, 1));
        } else if (const TextView name = latinWordName(latin); !name.empty()) {
            line.sound(name);
            at += latin.size();
        } else if (isHiragana(c)) {
            const auto katakana = static_cast<char16_t>(c + (u'ア' - u'あ'));
            line.sound(TextView(&katakana, 1));
            ++at;
        } else {
            at += saySign(line, text, at);
        }
    }
    return line.take();
}

namespace {

constexpr std::size_t mostCharacters = 120;
/// As many as these characters can have: a text that is no UTF-8 may have bytes without end that begin none.
constexpr std::size_t mostBytes = 4 * mostCharacters;

/// Bytes of the first characters of a text: to the end of its first sentence, or to the limit.
std::size_t pieceBytes(std::string_view utf8) {
    std::size_t characters = 0;
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const bool isFirstByte = (static_cast<std::uint8_t>(utf8[at]) & 0xC0) != 0x80;
        if (at == mostBytes || (isFirstByte && characters++ == mostCharacters))
            return at;
        if (utf8[at] == '\n')
            return at + 1;
        for (const std::string_view end : {"。", "．", "｡", "！", "？"}) {
            if (utf8.substr(at).starts_with(end))
                return at + end.size();
        }
    }
    return utf8.size();
}

bool isSpeakable(TextView piece) {
    return std::ranges::any_of(piece, [](char16_t c) {
        return isDigit(c) || isKatakana(c) || isHiragana(c) || isKanji(c) || isRareKanji(c) || !signName(c).empty() ||
               (c > u'\x7F' && c < u'\u2000');
    });
}

} // namespace

Text takePiece(std::string_view& utf8) {
    while (!utf8.empty()) {
        const std::size_t bytes = pieceBytes(utf8);
        Text piece = plainWidth(fromUtf8(utf8.substr(0, bytes)));
        utf8.remove_prefix(bytes);
        if (isSpeakable(piece))
            return piece;
    }
    return {};
}
