#pragma once
// From a text as people write it to the kana that a simple engine pronounces right. Called by the engines, with the
// words that MeCab found. It starts no program and touches no clipboard.

#include "platform/text.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// A word of a text: as written in plain widths, its kind in the dictionary's own words, and how it is pronounced in
/// katakana. The last two are empty where the dictionary doesn't know the word.
struct SpokenWord {
    Text written{};
    Text kind{};
    Text pronounced{};
};

/// What the words sound like: katakana, digits, "、" and "。" for pauses, blanks between parts. Never begins with a
/// pause, never has two in a row. Digits stay digits, Latin letters become their names, a kanji that the dictionary
/// doesn't know is announced as one.
Text kanaOf(const std::vector<SpokenWord>& words);

/// Takes the next piece off the front of a text in UTF-8: a sentence, or as much of a long one as an engine takes at
/// once (some 120 characters). Gives it in plain widths; `utf8` is what remains. Pieces without a single character to
/// be spoken are passed over, so an empty piece means that the text is at its end.
Text takePiece(std::string_view& utf8);
