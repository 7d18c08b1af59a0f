// romika-reader, the reading program: speaks the texts that appear on the clipboard with the mark. It needs nothing of
// the program that writes them, and that program needs nothing of it.

#include "reader/background.h"
#include "reader/check.h"
#include "reader/engine_list.h"
#include "reader/options.h"
#include "reader/reader_loop.h"
#include "reader/settings_file.h"
#include "reader/speech_service.h"

#include <csignal>
#include <cstdlib>
#include <optional>
#include <unistd.h>

namespace {

enum Status { done = 0, failed = 1, misused = 2, alreadyRunning = 3 };

void complain(const std::string& text) {
    printLine(STDERR_FILENO, "romika-reader: " + text);
}

void complainAboutDesktop() {
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") != nullptr)
        complain("this Wayland desktop runs without XWayland, so the clipboard can't be watched. "
                 "XWayland が動いていないので、クリップボードを見張れません。");
    else
        complain(
            "there is no desktop here whose clipboard could be watched. クリップボードを見張れる画面がありません。");
}

int watch(const Options& options, EventLog& log, std::optional<Background>& background) {
    const auto clipboard = ClipboardWatch::open();
    if (!clipboard) {
        complainAboutDesktop();
        return failed;
    }
    if (!clipboard->becomeTheReader()) {
        if (background)
            return done;
        complain("another reader is running. 読み上げプログラムはもう動いています。");
        return alreadyRunning;
    }
    PlayerOutput output(options.player);
    Speaker speaker(makeEngines(options, false, output, log), options.speed, log);
    const bool hasEngine = watchClipboard(*clipboard, speaker, log, [&] {
        if (background)
            background->report(done);
    });
    if (!hasEngine)
        complain("no engine is installed, so nothing can be spoken; \"romika-reader --check\" tells more. "
                 "使える音声がありません。");
    return hasEngine ? done : failed;
}

int say(const Options& options, EventLog& log, const CommandLine& line) {
    std::unique_ptr<SoundOutput> output = std::make_unique<PlayerOutput>(options.player);
    if (!line.wave.empty())
        output = std::make_unique<FileOutput>(line.wave);
    Speaker speaker(makeEngines(options, !line.wave.empty(), *output, log), options.speed, log);
    return speakToTheEnd(speaker, line.text) ? done : failed;
}

int run(const CommandLine& line, const Options& options, std::optional<Background>& background) {
    EventLog log(options.log);
    if (!options.log.empty() && !log.isOpen()) {
        complain("the log \"" + options.log + "\" can't be written. ログに書けません。");
        return failed;
    }
    return line.task == CommandLine::Task::say ? say(options, log, line) : watch(options, log, background);
}

} // namespace

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    Options options;
    for (const std::string& problem : applySettings(readSettingsFile(settingsPath()), options))
        complain(settingsPath() + ": " + problem);
    const CommandLine line = readCommandLine({words + 1, words + count}, options);
    if (!line.problem.empty()) {
        complain(line.problem + "; \"romika-reader --help\" tells what there is");
        return misused;
    }
    switch (line.task) {
    case CommandLine::Task::help:
        printLine(STDOUT_FILENO, helpText());
        return done;
    case CommandLine::Task::version:
        printLine(STDOUT_FILENO, "romika-reader " ROMIKA_VERSION);
        return done;
    case CommandLine::Task::speechService:
        return runSpeechService();
    case CommandLine::Task::check:
        return runCheck(options) ? done : failed;
    case CommandLine::Task::say:
    case CommandLine::Task::watch:
        break;
    }
    std::optional<Background> background;
    if (line.background)
        background = Background::enter();
    const int status = run(line, options, background);
    if (background)
        background->report(status);
    return status;
}
