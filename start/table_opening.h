#pragma once
// How a table becomes the open one, and how the table that was open comes back when it doesn't. Every road into a table
// (command line, start screen, file choice) ends here, so that claims between running copies, closed files and old
// names are handled once. Nothing here asks the user anything; refusals have been told when the call returns.

#include "sheet/zormod.h"

/// The command that shows the table in the window: labels, view in force, focus in the input box. The edit screen lies
/// above this room and binds it.
inline constexpr TextView showOpenedTableCommand = u"showOpenedTable";

/// The table that was open when the object was made.
class OldTable {
public:
    explicit OldTable(ZORMOD& zormod);
    /// Makes it the open table again: names, items, and file 1 if that has been closed. The window isn't touched. If its
    /// item definition file is refused now, or if there was none, the program is left without a table.
    void putBack();

private:
    ZORMOD& zormod_;
    Text fileName_;
    Text fileDrive_;
};

/// Closes all files, gives the claim up and leaves the program without a table.
void forgetTable(ZORMOD& zormod);

/// Claims the table whose data file is at `path`. Null if another running copy has it; the user has been told.
std::unique_ptr<TableLock> claimTable(ZORMOD& zormod, const Text& path);

/// Opens the table that `fileName` and `fileDrive` name: claims it, reads its item definition file, opens its data file
/// as file 1. The window isn't filled yet. False: another copy uses it or the item definition file is refused; the user
/// has been told, and the caller puts the old table back. A data file that can't be opened is a RuntimeFailure.
bool openNamedTable(ZORMOD& zormod);

/// Opens `fileName` on `fileDrive` in place of the table that is open and fills the window; nothing is selected any
/// more. False after a refusal: the old table is open as before. After a RuntimeFailure it is open as well, but the
/// window must be filled again.
bool openInsteadOfOld(ZORMOD& zormod, const Text& fileName, const Text& fileDrive);

/// Shows the edit screen, if it isn't there yet, with the table that has been opened into the window.
void showTableOnScreen(ZORMOD& zormod);
