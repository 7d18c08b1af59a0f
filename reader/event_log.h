#pragma once
// The text log: what was spoken and what happened to it, one line an event, for braille tools, tests and the curious;
// and the notices, which also go to the error output. Written to by the speaker and the engines. Clipboard texts
// without the mark never come here.
//
// A line is a word, a tab and a text in UTF-8 whose control characters have become blanks:
//   text    a text that is to be spoken, as it came       kana    what an engine is given of it, piece by piece
//   sound   the first sound of the text goes out          end     the text has been spoken to its end
//   speed   the new speed, 0 to 9                         silence a bare mark came
//   engine  the engine now in use                         notice  something that the user should know

#include "platform/posix/descriptor.h"

#include <string>
#include <string_view>

/// An open log, or none: then only notices are told.
class EventLog {
public:
    /// Opens `path` for appending; "-" is the standard output, "" no log. The log is not open if that fails.
    explicit EventLog(const std::string& path);

    bool isOpen() const { return file_.isOpen(); }
    /// Appends an event. A log that can't be written any more is closed, with a notice.
    void add(std::string_view event, std::string_view text);
    /// Appends a notice and prints it as an error of this program.
    void notice(std::string_view text);

private:
    Descriptor file_;
};

/// Prints a line on the standard output (1) or the error output (2).
void printLine(int descriptor, std::string_view text);
