#include "reader/options.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr std::array<std::string_view, 5> engineNames{"auto", "speechd", "openjtalk", "espeak", "log"};

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Sets the option of that name; returns what is wrong with it, or nothing.
std::string set(Options& options, std::string_view name, std::string_view value) {
    if (value.empty())
        return "nothing is given for \"" + std::string(name) + "\"";
    if (name == "engine") {
        if (std::ranges::find(engineNames, value) == engineNames.end())
            return "no engine \"" + std::string(value) + "\" (auto, speechd, openjtalk, espeak, log)";
        options.engine = value;
    } else if (name == "speed") {
        if (value.size() != 1 || value[0] < '0' || value[0] > '9')
            return "the speed is a digit from 0 to 9, not \"" + std::string(value) + "\"";
        options.speed = value[0] - '0';
    } else if (name == "log") {
        options.log = value;
    } else if (name == "player") {
        options.player = value;
    } else if (name == "voice") {
        options.voice = value;
    } else if (name == "dictionary") {
        options.dictionary = value;
    } else {
        return "no setting \"" + std::string(name) + "\"";
    }
    return {};
}

/// Reads one argument after the other.
class ArgumentReader {
public:
    ArgumentReader(const std::vector<std::string>& arguments, Options& options)
        : arguments_(arguments), options_(options) {}

    CommandLine read() {
        for (; at_ < arguments_.size() && line_.problem.empty(); ++at_)
            readOne(arguments_[at_]);
        if (line_.problem.empty() && !line_.wave.empty() && line_.task != CommandLine::Task::say)
            line_.problem = "--wav needs --say";
        if (line_.problem.empty() && line_.background && line_.task != CommandLine::Task::watch)
            line_.problem = "--background goes with watching only";
        return line_;
    }

private:
    void readOne(const std::string& argument) {
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        if (name == "--say" || name == "--wav" || name == "--engine" || name == "--speed" || name == "--log") {
            readValue(name, equals == std::string::npos ? nullptr : argument.c_str() + equals + 1);
        } else if (argument == "--help" || argument == "-h") {
            line_.task = CommandLine::Task::help;
        } else if (argument == "--version") {
            line_.task = CommandLine::Task::version;
        } else if (argument == "--check") {
            line_.task = CommandLine::Task::check;
        } else if (argument == "--background") {
            line_.background = true;
        } else if (argument == "--speech-service") {
            line_.task = CommandLine::Task::speechService;
        } else {
            line_.problem = "what is \"" + argument + "\"?";
        }
    }

    void readValue(const std::string& name, const char* given) {
        if (given == nullptr && at_ + 1 == arguments_.size()) {
            line_.problem = name + " needs a value";
            return;
        }
        const std::string value = given != nullptr ? given : arguments_[++at_];
        if (name == "--say") {
            line_.task = CommandLine::Task::say;
            line_.text = value;
        } else if (name == "--wav") {
            line_.wave = value;
        } else {
            line_.problem = set(options_, std::string_view(name).substr(2), value);
        }
    }

    const std::vector<std::string>& arguments_;
    Options& options_;
    std::size_t at_ = 0;
    CommandLine line_;
};

} // namespace

std::vector<std::string> applySettings(std::string_view file, Options& options) {
    std::vector<std::string> problems;
    while (!file.empty()) {
        const std::size_t end = file.find('\n');
        const std::string_view line = withoutBlanks(file.substr(0, end));
        file.remove_prefix(end == std::string_view::npos ? file.size() : end + 1);
        if (line.empty() || line.front() == '#')
            continue;
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos)
            problems.push_back("no \"=\" in \"" + std::string(line) + "\"");
        else if (auto problem =
                     set(options, withoutBlanks(line.substr(0, equals)), withoutBlanks(line.substr(equals + 1)));
                 !problem.empty())
            problems.push_back(std::move(problem));
    }
    return problems;
}

CommandLine readCommandLine(const std::vector<std::string>& arguments, Options& options) {
    return ArgumentReader(arguments, options).read();
}

std::string settingsPath() {
    const char* folder = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    if (folder != nullptr && *folder == '/')
        return std::string(folder) + "/romika/reader.conf";
    return home != nullptr ? std::string(home) + "/.config/romika/reader.conf" : std::string();
}

std::string helpText() {
    return R"(usage: romika-reader [OPTION]...
Watches the clipboard and speaks every text that ends in "。｡.". All other texts are left alone.
クリップボードを見張り、「。｡.」で終わる文を読み上げます。ほかの文には触れません。

  --engine NAME   speechd, openjtalk, espeak, log, or auto: the first of these that works (auto)
  --speed N       0, the slowest, to 9 (4); the program that writes the texts can change it
  --log FILE      append what is spoken and what happens to FILE; "-" is the standard output
  --say TEXT      speak TEXT once and end
  --wav FILE      with --say: write the sound to FILE as a wave file
  --check         say and print which engines work here, and what to install for a better voice
  --background    go on in the background once everything is ready; no error if a reader runs already
  --help          print this text
  --version       print the version

Exit status: 0 done; 1 it did not work; 2 the command line makes no sense; 3 another reader is running.

Settings: $XDG_CONFIG_HOME/romika/reader.conf (~/.config/romika/reader.conf), lines such as
  # comment
  engine = espeak
  speed = 6
  log = FILE
  player = auto, paplay, aplay, or the path of a program: it is given the sample rate as its argument
           and 16-bit samples of one channel at its standard input
  voice = FILE.htsvoice       Open JTalk's voice; without it the first in share/hts-voice or share/open-jtalk
                              below ~/.local, /usr/local and /usr
  dictionary = FOLDER         Open JTalk's dictionary

Lines of the log: a word (text, kana, sound, end, speed, silence, engine, notice), a tab, a text.)";
}
