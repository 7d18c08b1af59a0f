#pragma once
// The state of the design form `frmDESIGN`: the grid of items, the cell in hand, and the texts of its boxes. The form
// owns one for as long as it is open; the routines of this room work on it. Nothing here opens a form or writes a file.
//
// While the form is open the open table's item count follows the grid; its names, alignments and widths stay, because
// the records on the screen and on the disk are still cut by them.

#include "sheet/zormod.h"
#include "start/folder_browser.h"

#include <vector>

/// The pattern of the list of other tables.
inline constexpr TextView referencePattern = u"k?*.txt";

/// What the form is open for. Taken from the task word when it opens.
enum class DesignMode {
    newTable, ///< empty task word
    change,   ///< "tdesign": the open table
    csv,      ///< "SVCread": a new table for a CSV file
};

/// One line of the grid, as typed or read; nothing in it has to be valid before the design is accepted.
struct DesignRow {
    Text name{};
    Text align{};
    Text width{};
    bool operator==(const DesignRow&) const = default;
};

/// The columns of the grid that are typed.
enum class DesignColumn { name = 1, align = 2, width = 3 };

/// The state before the form was opened, to which giving up goes back.
struct TableBefore {
    FileIdentity file;
    ItemTable items; ///< with `itemStart`
    Position position;
    bool hadTable = false;
};

/// The state of the form.
struct TableDesign {
    /// As the form opens. A new table has item 0 alone and its folder in `text3`; "tdesign" shows the open table;
    /// "SVCread" the items that the CSV's reader has left in `otherItems`, and the CSV's path in `otherFileName` and
    /// `otherFileDrive` without its extension.
    explicit TableDesign(ZORMOD& state);
    TableDesign(const TableDesign&) = delete;
    TableDesign& operator=(const TableDesign&) = delete;

    ZORMOD& zormod;
    DesignMode mode = DesignMode::newTable;
    TableBefore before;

    std::vector<DesignRow> rows; ///< item 0 and on; never empty
    int row = 0;                 ///< row of the cell in hand
    DesignColumn column = DesignColumn::name;
    Text itemin; ///< the box through which the cell is typed
    bool overwrites = false; ///< typing in `itemin` takes the place of the character after the caret
    bool toldEnd = false;    ///< the next Down in the last row makes a row

    Text text1; ///< item count as typed
    Text text2; ///< table memo
    Text text3; ///< file name
    FolderBrowser references; ///< other tables as sources of the design; starts in the table's folder
    bool referencesShown = false;
    bool isClosed = false; ///< the form is going away: leaving a box tells and takes nothing any more
};

/// Number of the last item in the grid.
std::int16_t lastDesignItem(const TableDesign& design);

/// The text of a cell of the grid.
Text& cellText(DesignRow& row, DesignColumn column);
const Text& cellText(const DesignRow& row, DesignColumn column);

/// Makes a cell the one in hand: `itemin` gets its text. `row` must exist.
void standOnDesignCell(TableDesign& design, int row, DesignColumn column);

/// The grid has become another: `text1` and the open table's item count follow, and the cell in hand stays inside.
void designRowsChanged(TableDesign& design);

/// The grid takes `count` + 1 rows; new ones are empty. `count` is 0 to highestItem.
void resizeDesign(TableDesign& design, std::int16_t count);

/// The rows of a table that has been read.
std::vector<DesignRow> designRows(const ItemTable& items);
