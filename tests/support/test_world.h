#pragma once
// A whole world for a test of core: doubles for everything but the files, which are real ones in a temporary folder,
// and one ZORMOD on top.

#include "platform/code_page.h"
#include "platform/posix/posix_files.h"
#include "sheet/zormod.h"
#include "support/doubles.h"
#include "support/fake_printer.h"

#include <string>
#include <string_view>
#include <vector>

/// A temporary folder that goes away with the object.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    /// Native path without a slash at its end.
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// Real parts that take the place of doubles; what is null stays a double. A part may still be unfinished: nothing of it
/// is used while the world is made.
struct RealParts {
    Dialogs* dialogs = nullptr;
    Screen* screen = nullptr;
    Commands* commands = nullptr;
    Forms* forms = nullptr;
    Printer* printer = nullptr;
    bool walledIn = false; ///< drive C is the temporary folder: no path of the program leads out of it
};

/// Doubles, real files in `folder` (the program folder too), and the shared state in its start-up values.
struct TestWorld {
    explicit TestWorld(const RealParts& parts = {});

    /// One item of a table to make.
    struct Item {
        std::u16string_view name;
        std::u16string_view align;
        int width;
    };
    /// Writes a table `name` (such as "t.txt") with its K file: `records` hold the cells of one record each, put into
    /// the items by their alignment.
    void makeTable(const std::string& name, const std::vector<Item>& items,
                   const std::vector<std::vector<std::u16string_view>>& records);
    /// Opens a table made before as the program does: K file, data file, window. Fails the test if it is refused.
    void openTable(const std::string& name);
    /// makeTable and openTable of "t.txt".
    void table(const std::vector<Item>& items, const std::vector<std::vector<std::u16string_view>>& records);

    /// Bytes of a file in the folder; a missing file is empty.
    std::string bytesOf(const std::string& name) const;
    /// Writes a file in the folder.
    void writeFile(const std::string& name, std::string_view bytes) const;
    /// The texts spoken so far without their mark, as UTF-8, and forgets them.
    std::vector<std::string> takeSpoken();
    /// Lets time pass, so that the next reading passes the throttle.
    void later(double seconds = 1) { clock.now += seconds; }

    TemporaryFolder folder;
    FakeClipboard clipboard;
    FakeClock clock;
    FakeBeeper beeper;
    PosixFiles files;
    const CodePage& codePage; ///< one for all worlds: its tables take longer to fill than most tests to run
    ScriptedDialogs dialogs;
    FakeScreen screen;
    FakeCommands commands;
    FakeForms forms;
    FakeEventLoop eventLoop;
    FakePrinter printer;
    ZORMOD zormod;
};
