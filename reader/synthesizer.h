#pragma once
// The programs that turn text into a wave file on their standard output, one process a piece of text. A wave engine
// asks one of them for its command line. They play nothing themselves.

#include "reader/mecab.h"

#include <optional>
#include <string>
#include <vector>

/// How one piece of text is to be turned into sound.
struct SynthesisOrder {
    std::vector<std::string> command{};
    std::string input{}; ///< for the standard input
    std::string told{};  ///< what the engine is given, for the log; empty if the piece has no sound
};

/// A program that synthesises.
class Synthesizer {
public:
    virtual ~Synthesizer() = default;
    virtual std::string name() const = 0;
    /// True if all its programs and files are there. Says nothing about whether they work.
    virtual bool isInstalled() const = 0;
    virtual void prepare() = 0;
    /// The order for a piece in plain widths at speed 0..9; nothing if a program that it needs has failed.
    virtual std::optional<SynthesisOrder> orderFor(TextView piece, int speed) = 0;
};

/// eSpeak NG for the sound, MeCab for the readings: it would name each kanji in English instead of reading it.
class EspeakSynthesizer : public Synthesizer {
public:
    std::string name() const override { return "espeak"; }
    bool isInstalled() const override;
    void prepare() override { mecab_.prepare(); }
    std::optional<SynthesisOrder> orderFor(TextView piece, int speed) override;

private:
    Mecab mecab_;
};

/// Open JTalk, which reads kanji itself.
class OpenJtalkSynthesizer : public Synthesizer {
public:
    /// The voice file and the dictionary folder to use; where empty, the usual folders are searched.
    OpenJtalkSynthesizer(const std::string& voice, const std::string& dictionary);

    std::string name() const override { return "openjtalk"; }
    bool isInstalled() const override { return isInstalled_; }
    void prepare() override {}
    std::optional<SynthesisOrder> orderFor(TextView piece, int speed) override;

private:
    std::string voice_;
    std::string dictionary_;
    bool isInstalled_;
};

/// The first voice file *.htsvoice in the usual folders, subfolders included; empty if there is none.
std::string findVoiceFile();
/// The folder of Open JTalk's dictionary; empty if there is none.
std::string findOpenJtalkDictionary();
