#pragma once
// The dictionary that knows how kanji are read: MeCab as a child that stays and answers line by line. Used by the
// engines that speak kana. It is given a short time for each answer, so a dictionary that hangs costs no more than
// that.

#include "reader/child_process.h"
#include "reader/reading_text.h"

#include <chrono>
#include <optional>
#include <vector>

/// One running dictionary, started when it is first needed.
class Mecab {
public:
    /// True if MeCab and a dictionary that it can use are installed.
    static bool isInstalled();

    /// Starts it before the first text comes, since that takes longer than an answer.
    void prepare();
    /// The words of one piece of text in plain widths. Waits for the answer, but not for long: nothing if MeCab is
    /// missing, has ended or does not answer, after one new start.
    std::optional<std::vector<SpokenWord>> wordsOf(TextView piece);

private:
    std::optional<std::string> answerTo(const std::string& line);

    std::optional<ChildProcess> child_;
};
