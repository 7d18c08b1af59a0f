#include "reader/reading_text.h"

#include "platform/utf8.h"

#include <gtest/gtest.h>

namespace {

std::string kana(const std::vector<SpokenWord>& words) { return toUtf8(kanaOf(words)); }
/// The kana of a text in which the dictionary knows no word.
std::string kanaOfUnknown(TextView text) { return kana({{Text(text), u"", u""}}); }

std::vector<std::string> piecesOf(std::string_view utf8) {
    std::vector<std::string> pieces;
    for (Text piece = takePiece(utf8); !piece.empty(); piece = takePiece(utf8))
        pieces.push_back(toUtf8(piece));
    return pieces;
}

} // namespace

TEST(ReadingText, KanjiAreReadAsTheDictionarySays) {
    EXPECT_EQ(kana({{u"氏名", u"名詞", u"シメイ"}, {u"年齢", u"名詞", u"ネンレイ"}}), "シメイネンレイ");
}

TEST(ReadingText, ParticlesSoundAsTheyAreSpoken) {
    EXPECT_EQ(kana({{u"記録", u"名詞", u"キロク"}, {u"は", u"助詞", u"ワ"}}), "キロクワ");
    EXPECT_EQ(kana({{u"先頭", u"名詞", u"セントー"}, {u"へ", u"助詞", u"エ"}}), "セントーエ");
    EXPECT_EQ(kana({{u"番号", u"名詞", u"バンゴー"}, {u"を", u"助詞", u"ヲ"}}), "バンゴーオ");
}

TEST(ReadingText, UnknownKanaAreSpelledAndUnknownKanjiAnnounced) {
    EXPECT_EQ(kanaOfUnknown(u"ギョウ"), "ギョウ");
    EXPECT_EQ(kanaOfUnknown(u"ぎょう"), "ギョウ");
    EXPECT_EQ(kanaOfUnknown(u"乂"), "カンジ");
    EXPECT_EQ(kanaOfUnknown(u"\U00020BB7"), "カンジ");
}

TEST(ReadingText, DigitsStayNumbers) {
    EXPECT_EQ(kanaOfUnknown(u"ギョウ12"), "ギョウ12");
    EXPECT_EQ(kanaOfUnknown(u"0123"), "0123");
    EXPECT_EQ(kana({{u"3", u"名詞", u"サン"}}), "3");
    EXPECT_EQ(kanaOfUnknown(u"1,234"), "1234");
    EXPECT_EQ(kanaOfUnknown(u"3.14"), "3テン1 4");
    EXPECT_EQ(kanaOfUnknown(u"-5"), "マイナス5");
    EXPECT_EQ(kanaOfUnknown(u"3-5"), "3、5");
    EXPECT_EQ(kanaOfUnknown(u"1~9"), "1カラ9");
}

TEST(ReadingText, WhatIsCountedIsReadAsACounter) {
    EXPECT_EQ(kana({{u"11", u"", u""}, {u"月", u"名詞", u"ツキ"}}), "11ガツ");
    EXPECT_EQ(kana({{u"月", u"名詞", u"ツキ"}}), "ツキ");
}

TEST(ReadingText, MarksBecomePausesAndPausesDontPileUp) {
    EXPECT_EQ(kanaOfUnknown(u"ア、「イ」。ウ"), "ア、イ。ウ");
    EXPECT_EQ(kanaOfUnknown(u"、。ア、、、イ"), "ア、イ");
    EXPECT_EQ(kanaOfUnknown(u"ア 、  イ"), "ア、イ");
    EXPECT_EQ(kanaOfUnknown(u"ア?イ!"), "ア。イ。");
    EXPECT_EQ(kanaOfUnknown(u"ア:(イ)"), "ア、イ");
}

TEST(ReadingText, BlanksPartWords) { EXPECT_EQ(kanaOfUnknown(u" ア  イ "), "ア イ"); }

TEST(ReadingText, LettersAreSpelledAndKeysNamed) {
    EXPECT_EQ(kanaOfUnknown(u"CSV"), "シーエスブイ");
    EXPECT_EQ(kanaOfUnknown(u"Ctrl+Shift+Ins"), "コントロールプラスシフトプラスインサート");
    EXPECT_EQ(kanaOfUnknown(u"tabs"), "ティーエービーエス");
}

TEST(ReadingText, AMinusBetweenKatakanaIsALongVowel) { EXPECT_EQ(kanaOfUnknown(u"コ-ド"), "コード"); }

TEST(ReadingText, ThePiecesAreSentences) {
    EXPECT_EQ(piecesOf("一つ。二つ。。三つ"), (std::vector<std::string>{"一つ。", "二つ。", "三つ"}));
    EXPECT_EQ(piecesOf("一つ\n二つ｡"), (std::vector<std::string>{"一つ ", "二つ。"}));
    EXPECT_EQ(piecesOf(""), std::vector<std::string>{});
    EXPECT_EQ(piecesOf("。、 …"), std::vector<std::string>{});
}

TEST(ReadingText, BytesThatBeginNoCharacterMakeNoPieceLonger) {
    const std::string broken = "1" + std::string(2000, '\x80') + "2";
    std::string_view text = broken;
    EXPECT_EQ(takePiece(text), u"1" + Text(479, u'\uFFFD'));
    EXPECT_EQ(takePiece(text).back(), u'2');
    EXPECT_EQ(text, "");
}

TEST(ReadingText, ALongSentenceIsCutBetweenCharacters) {
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "あ";
    std::string whole;
    const auto pieces = piecesOf(text);
    EXPECT_EQ(pieces.size(), 3U);
    for (const std::string& piece : pieces)
        whole += piece;
    EXPECT_EQ(whole, text);
}
