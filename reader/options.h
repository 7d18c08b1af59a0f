#pragma once
// What the reader is told by its command line and its settings file. Read once at the start by main; the command line
// has the last word. The texts of --help and --version stand here too, because they describe the same things.

#include "reader/engine.h"

#include <string>
#include <string_view>
#include <vector>

/// How the reader is to behave.
struct Options {
    std::string engine = "auto"; ///< auto, speechd, openjtalk, espeak or log
    int speed = usualSpeed;      ///< 0..9
    std::string log{};           ///< file of the text log, "-" for the standard output; empty: none
    std::string player = "auto"; ///< see PlayerOutput
    std::string voice{};         ///< Open JTalk's voice file; empty: the first that is found
    std::string dictionary{};    ///< Open JTalk's dictionary folder; empty: the first that is found
};

/// What is to be done, from the command line.
struct CommandLine {
    enum class Task { watch, say, check, help, version, speechService };
    Task task = Task::watch;
    bool background = false; ///< watch from the background
    std::string text{};      ///< what is to be said
    std::string wave{};      ///< file for its sound; empty: the desktop's sound
    std::string problem{};   ///< why the command line makes no sense; empty if it does
};

/// Changes `options` by the lines of a settings file. Returns what was wrong, one text a line that was passed over.
std::vector<std::string> applySettings(std::string_view file, Options& options);

/// Reads the arguments behind the program's name; changes `options` by them.
CommandLine readCommandLine(const std::vector<std::string>& arguments, Options& options);

/// The settings file of this user, whether it exists or not; empty if the user has no home folder.
std::string settingsPath();

/// What --help prints.
std::string helpText();
