#pragma once
// What there is to see of the program between two keys: the table's two files as they lie on the disk, and where the
// user stands in it. Checks compare what was seen before a key with what is seen after it.

#include "tests/monkey/monkey_desk.h"

#include <string>

/// A look at the program.
struct Seen {
    Text table{};          ///< drive and name of the open table; empty: none
    std::string items{};   ///< its K file
    std::string records{}; ///< its data file
    ItemTable itemTable{};
    Position position{};
    Selection selection{};
    Bytes row{};              ///< the current row of the window
    Text boxText{};           ///< what stands in the input box
    bool boxIsEmpty = true;   ///< nothing in it, or the blank that asks for the limit to be lifted
    bool inInputBox = false;  ///< the input box has the focus
    bool isComposing = false; ///< an input method shows text that isn't handed over yet
    Text taskWord{};
    bool idIsAutomatic = false;
    bool smallWindowIsUp = false; ///< a window above the edit screen that doesn't stop it

    int recordCount() const { return static_cast<int>(records.size() / recordLength); }
    /// Record `number`, from 1.
    std::string_view record(int number) const {
        return std::string_view(records).substr(static_cast<std::size_t>(number - 1) * recordLength, recordLength);
    }
};

/// Looks at the program.
Seen look(MonkeyDesk& desk);
/// The bytes of a file of the program; empty if there is none.
std::string fileBytes(MonkeyDesk& desk, const Text& path);
