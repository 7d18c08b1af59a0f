#pragma once
// The world as the logic sees it: one reference for each interface. main builds the real ones, tests build doubles.

class Beeper;
class Clipboard;
class Clock;
class CodePage;
class Commands;
class Dialogs;
class EventLoop;
class Files;
class Forms;
class Printer;
class Screen;

/// References to all interfaces. The objects outlive everything that holds this struct.
struct Platform {
    Clipboard& clipboard;
    Clock& clock;
    Beeper& beeper;
    Files& files;
    const CodePage& codePage;
    Dialogs& dialogs;
    Screen& screen;
    Commands& commands;
    Forms& forms;
    EventLoop& eventLoop;
    Printer& printer;
};
