#pragma once
// What the desktop tests need to know and to do about processes. Waiting is always for a condition with a deadline.

#include <chrono>
#include <functional>
#include <string>
#include <sys/types.h>

/// Looks at the condition again and again until it holds; false if it still does not at the deadline.
bool becomesTrue(const std::function<bool()> &condition,
                 std::chrono::milliseconds patience = std::chrono::milliseconds(5000));

/// What a command line of the shell prints; gives up after ten seconds.
std::string outputOf(const std::string &command);

/// Feeds `input` to a command line of the shell. True if it ended with status 0.
bool feed(const std::string &command, const std::string &input);

/// True while the process runs; a zombie does not.
bool isRunning(pid_t process);

/// Runs `story` in a child process that then ends on the spot, without any tidying up; true if `story` returned true.
bool inEndedProcess(const std::function<bool()> &story);

/// Another program puts the text on the clipboard; other programs can fetch it when this returns true.
bool copyElsewhere(const std::string &utf8);

/// Another program fetches the clipboard's text.
std::string pasteElsewhere();
