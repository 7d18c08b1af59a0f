#pragma once
// A desk with the edit screen on it: the real Form1, its logic and the real command table, put together as main does
// it.

#include "app/commands.h"
#include "edit/forms/Form1.h"
#include "platform/screen_link.h"
#include "support/qt/desk.h"
#include "voice/forms/form_table.h"

#include <memory>

/// The real command table, which remembers what was run.
class NotedCommands : public CommandTable {
public:
    void run(TextView name) override {
        ran.emplace_back(name);
        CommandTable::run(name);
    }
    std::vector<Text> ran; ///< in order
};

/// What the shared state refers to and so must exist before it.
struct EditDeskParts {
    ScreenLink link;
    NotedCommands commands;
    FormTable formTable;
};

/// The edit screen, not yet shown and without a table.
struct EditDesk : EditDeskParts, Desk {
    /// `walledIn`: no path of the program leads out of the desk's folder.
    explicit EditDesk(bool walledIn = false);
    ~EditDesk() { formTable.destroyOpenForms(); }

    /// Makes a table, opens it as the program does, and shows the window. Forgets what was spoken meanwhile.
    void openTable(const std::vector<TestWorld::Item>& items,
                   const std::vector<std::vector<std::u16string_view>>& records);
    /// Presses a key after a pause that lets its reading pass the throttle.
    void key(const KeyStroke& stroke);
    /// The texts spoken by one key.
    std::vector<std::string> spokenBy(const KeyStroke& stroke);
    /// A control of Form1's panel, or a view, by its name.
    QWidget* part(const char* name);
    /// A control of a view.
    QWidget* partOf(const char* view, const char* name);
    /// Text that a box of the panel shows.
    std::string text(const char* name);
    /// Cell of the current record as the window has it.
    std::string cell(int item);

    Routines routines;
    EditScreen& edit = routines.edit;
    InputBox& box = routines.inputBox;
    Form1 form;
};
