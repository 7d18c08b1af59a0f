#pragma once
// The edit screen's logic with the real table of commands on a world of doubles, for operations that begin at a key of
// the input box or a menu entry and go on in a form.

#include "app/commands.h"
#include "sheet/record_window.h"
#include "structure/only_message.h"
#include "support/test_world.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

/// What the shared state refers to and so must exist before it.
struct TaskWorldParts {
    CommandTable table_;
};

struct TaskWorld : TaskWorldParts, TestWorld {
    TaskWorld() : TestWorld({.commands = &table_}), routines(zormod) {
        bindCommands(table_, routines);
        screen.onShowCurrentCell = [this] { showCurrentCell(routines.edit); };
    }

    /// Shows the table that has been opened, and listens from then on.
    void show(std::int16_t speechMode = 0) {
        showOpenedTable(routines.edit);
        zormod.speech.speechMode = speechMode;
        forget();
    }
    void forget() {
        takeSpoken();
        beeper.count = 0;
        dialogs.messages.clear();
        dialogs.questions.clear();
        forms.opened.clear();
        screen.redraws = 0;
        later();
    }
    /// Runs a command as a menu entry does.
    void run(TextView command) {
        later();
        table_.run(command);
    }
    /// A key down in the input box.
    void key(const KeyStroke& stroke) {
        later();
        routines.inputBox.keyDown(stroke);
    }
    int beeps() {
        const int count = beeper.count;
        beeper.count = 0;
        return count;
    }
    std::string task() const { return utf8(zormod.taskWord); }
    /// Text and title of the only message since the last call.
    std::pair<std::string, std::string> message() { return takeOnlyMessage(dialogs); }

    Routines routines;
    EditScreen& edit = routines.edit;
};
