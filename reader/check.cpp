#include "reader/check.h"

#include "reader/engine_list.h"
#include "reader/reader_loop.h"

#include <array>
#include <unistd.h>

using std::chrono::steady_clock;

namespace {

constexpr const char* trialText = "テスト。";
constexpr std::chrono::seconds patience{8};

struct Trial {
    std::string_view name;
    std::string_view what;
    std::string_view hint; ///< what to do if it is missing
};

constexpr std::array<Trial, 3> trials{{
    {"speechd", "the desktop's speech service (デスクトップの音声サービス)",
     "install speech-dispatcher, libspeechd2 and a Japanese voice for it"},
    {"openjtalk", "Open JTalk",
     "install open-jtalk and open-jtalk-mecab-naist-jdic, and put a voice file (*.htsvoice) into "
     "~/.local/share/hts-voice"},
    {"espeak", "MeCab and eSpeak NG", "install mecab, mecab-ipadic-utf8, espeak-ng and alsa-utils"},
}};

/// Lets an engine speak; true if it did so to the end.
bool speaks(Engine& engine, std::string_view text) {
    const TimePoint deadline = steady_clock::now() + patience;
    engine.prepare();
    engine.speak(std::string(text), usualSpeed);
    engine.work(steady_clock::now());
    while (engine.state() == Engine::State::speaking && steady_clock::now() < deadline) {
        std::vector<pollfd> watched;
        engine.watch(watched);
        waitForNews(watched, std::min(engine.deadline().value_or(deadline), deadline));
        engine.work(steady_clock::now());
    }
    return engine.state() == Engine::State::idle;
}

/// True if the player takes a twentieth of a second of silence to its end.
bool plays(const std::string& player) {
    constexpr std::uint32_t rate = 22050;
    const TimePoint deadline = steady_clock::now() + patience;
    PlayerOutput output(player);
    output.begin(rate);
    output.write(std::string(rate / 10, '\0'));
    output.finish();
    while (output.state() == SoundOutput::State::ending && steady_clock::now() < deadline) {
        std::vector<pollfd> watched;
        output.watch(watched, false);
        waitForNews(watched, deadline);
    }
    return output.state() == SoundOutput::State::done;
}

void print(std::string_view line) {
    printLine(STDOUT_FILENO, line);
}

/// Tries the players; true if one of them plays.
bool checkPlayers(const Options& options) {
    bool any = false;
    for (const std::string& player : installedPlayers(options.player)) {
        const bool works = plays(player);
        any = any || works;
        print("sound " + player +
              (works ? ": works (使えます)"
                     : ": takes no sound; there may be no sound device here "
                       "(音を出せません)"));
    }
    if (installedPlayers(options.player).empty())
        print("sound: no player is installed; install alsa-utils (音を出すプログラムがありません)");
    return any;
}

/// Tries an engine and prints the outcome; true if it works.
bool checkEngine(const Trial& trial, const Options& options, EventLog& log) {
    FileOutput output("/dev/null");
    const auto engine = makeEngine(std::string(trial.name), options, output, log);
    const bool works = speaks(*engine, trialText) && (trial.name == "speechd" || output.bytes() > 0);
    const std::string head = std::string(trial.name) + ", " + std::string(trial.what) + ": ";
    if (works)
        print(head + "works (使えます)");
    else if (engine->state() == Engine::State::absent)
        print(head + "is not there (ありません); " + std::string(trial.hint));
    else
        print(head + "is there and does not work (動きません)");
    return works;
}

} // namespace

bool runCheck(const Options& options) {
    EventLog log(options.log);
    std::string first;
    for (const Trial& trial : trials) {
        if (checkEngine(trial, options, log) && first.empty())
            first = trial.name;
    }
    const bool hasPlayer = checkPlayers(options);
    const bool isHeard = first == "speechd" || (!first.empty() && hasPlayer);
    if (first.empty())
        print("No engine works: nothing can be spoken. 使える音声がありません。");
    else if (!isHeard)
        print("Speech works, but no sound comes out. 音声は作れますが、音を出せません。");
    else
        print("Speech works with " + first + ". 音声を使えます。");
    if (first == "espeak")
        print("A better voice: Open JTalk with a voice file, see above. "
              "もっとよい声: 上の Open JTalk と音声ファイルを入れてください。");
    if (isHeard) {
        PlayerOutput output(options.player);
        const auto engine = makeEngine(first, options, output, log);
        speaks(*engine, "音声を使えます。" + first + "で読み上げます。");
    }
    return isHeard;
}
