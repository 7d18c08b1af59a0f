#pragma once
// The desk at which the monkey sits: the whole program with real forms and real files, walled into a folder of its own.
// It carries out keys and tells where the keyboard is; what must hold afterwards is looked at elsewhere.

#include "support/qt/edit_desk.h"
#include "tests/monkey/key_picker.h"

#include <map>

class QWidget;

/// The files of a folder by their names.
using FolderFiles = std::map<std::string, std::string>;

/// The program, started on the table "t.txt" if the folder has one, else with the start screen.
class MonkeyDesk : public EditDesk {
public:
    explicit MonkeyDesk(const FolderFiles& files);

    /// Starts the program as main does. Separate from the making, because the monkey may be needed at once.
    void start();
    /// Carries a key out and lets all events settle that are waiting.
    void perform(const MonkeyKey& key);
    Situation situation() const;
    /// True while no window has been closed by the program's end.
    bool isRunning() const { return !endStatus; }
    /// The files as they are now.
    FolderFiles folderFiles() const;
    /// Whatever the doubles remember is forgotten.
    void forget();

private:
    MonkeyKey withoutComma(MonkeyKey key);
    void workInNextLoop();
};
