#pragma once
// Doubles of the interfaces to the world. They remember what the program did, and anything that a test did not expect
// (a question without a scripted answer) fails the test. Time moves only when a test or a wait moves it.

#include "platform/beeper.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/commands.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/forms.h"
#include "platform/screen.h"

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

/// UTF-8 of a text, so that a failing test prints something readable.
std::string utf8(TextView text);
/// UTF-8 of several texts.
std::vector<std::string> utf8(const std::vector<Text>& texts);

/// A clipboard in memory that remembers every text ever written to it.
class FakeClipboard : public Clipboard {
public:
    ClipboardText read() override;
    bool write(TextView text) override;
    bool clear() override;

    /// Another program puts a text on the clipboard.
    void foreign(TextView text) { contents = Text(text); }

    Text contents;
    std::vector<Text> written; ///< every text written by the program, in order
    int clears = 0;
    int reads = 0;
    bool failing = false; ///< every call fails while this is set
};

/// A clock that stands still until it is moved.
class FakeClock : public Clock {
public:
    double secondsSinceMidnight() override { return now; }
    void shortSleep() override { now += 0.001; slept += 0.001; }

    double now = 36000;
    double slept = 0; ///< all time passed in waits
};

/// Counts beeps.
class FakeBeeper : public Beeper {
public:
    void beep() override { ++count; }
    int count = 0;
};

/// Answers questions from a script; a question that isn't scripted fails the test.
class ScriptedDialogs : public Dialogs {
public:
    struct Message {
        Text text;
        Text title;
    };
    struct Question {
        Text prompt;
        Text title;
        Text defaultText;
    };
    void showMessage(const Text& text, const Text& title) override;
    Answer askOkCancel(const Text& text, const Text& title) override;
    Text askText(const Text& prompt, const Text& title, const Text& defaultText) override;
    Answer askYesNoCancel(const Text& prompt, const Text& text) override;
    void openProgress(const Text& name, const Text& caption, bool canStop) override;
    void showProgress(const Text& text) override;
    void closeProgress() override { progressOpen = false; }
    bool isProgressOpen() const override { return progressOpen; }

    std::deque<Answer> answers; ///< for the next button questions
    std::deque<Text> texts;     ///< for the next text questions
    int expectedMessages = 0;   ///< messages that may still come; one more fails the test
    std::vector<Message> messages;
    std::vector<Question> questions; ///< every question of either kind
    bool progressOpen = false;
    std::vector<Text> progressNames;    ///< of each progress form opened
    std::vector<Text> progressCaptions; ///< and its caption
    std::vector<bool> progressCanStop;  ///< and whether it has its stop button
    std::vector<Text> progressTexts;    ///< every text of the progress label
};

/// Remembers what the screen was told. `onShowCurrentCell` lets a test put the real panel behind it.
class FakeScreen : public Screen {
public:
    void setTitle(const Text& text) override { title = text; ++titles; }
    void showField(PanelField field, const Text& text) override { fields[field] = text; }
    void colourLabel(PanelField field, LabelGround ground) override { grounds[field] = ground; }
    void focusField(PanelField field) override { focus = field; ++focusCalls; }
    void setInputBoxWidth(int bytes) override { inputBoxWidth = bytes; }
    void showCurrentCell() override;
    void redrawView() override { ++redraws; }
    void redrawCurrentRow() override { ++rowRedraws; }
    void showEcho(const Text& text) override { echo = text; echoTyping = true; }
    void showCellInEcho() override { echoTyping = false; }
    void paintMask(MaskKind kind, const CellRange& range) override { masks[kind] = range; }
    void hideMask() override { ++maskHides; masks.clear(); }
    void showReadingMode(int mode) override { readingMode = mode; speekVisible = mode != 0; }
    void showSpeek(bool visible) override { speekVisible = visible; }
    void showPinnedAutoRead(bool on) override { pinnedAutoRead = on; }

    Text title;
    int titles = 0;
    std::map<PanelField, Text> fields;
    std::map<PanelField, LabelGround> grounds;
    PanelField focus = PanelField::Text1;
    int focusCalls = 0;
    int inputBoxWidth = -1;
    int shownCells = 0;
    int redraws = 0;
    int rowRedraws = 0;
    Text echo;
    bool echoTyping = false;
    std::map<MaskKind, CellRange> masks; ///< those that are shown
    int maskHides = 0;
    int readingMode = -1;
    bool speekVisible = false;
    bool pinnedAutoRead = false;
    std::function<void()> onShowCurrentCell;
};

/// Remembers the commands that were run.
class FakeCommands : public Commands {
public:
    void run(TextView name) override;
    std::vector<Text> names;
    std::function<void()> onRun; ///< looks at the world at the moment a command is run
};

/// Remembers which forms were opened and plays scripted ones; a form without a script opens and stays loaded.
class FakeForms : public Forms {
public:
    void open(TextView name) override;
    void close(TextView name) override { loaded.erase(Text(name)); }
    bool isLoaded(TextView name) const override { return loaded.count(Text(name)) != 0; }

    std::vector<Text> opened;
    std::set<Text> loaded;
    std::map<Text, std::function<void()>> scripts; ///< run as a modal form is: open returns when it has run
};

/// Runs an action at a chosen turn of a long loop.
class FakeEventLoop : public EventLoop {
public:
    void yield() override;

    int turns = 0;
    std::map<int, std::function<void()>> atTurn; ///< by number of the turn, from 1
};
