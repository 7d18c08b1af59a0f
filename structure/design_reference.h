#pragma once
// Other tables as a source of a design: what a K file says of itself while the list of them is walked, and the filling
// of the grid from one. Called by the reference list of the design form with the names that the list shows.

#include "sheet/item_file.h"
#include "structure/table_design.h"

/// Said when the list is closed.
inline constexpr TextView referencesClosed = u"参照ファイルリストクローズ";

/// Fills the grid from the K file of the data file `fileName` on `fileDrive`: names and alignments trimmed, widths as
/// they stand. It takes a first line without an apostrophe too, an older form of the file; a file of that form that ends
/// behind its names gives empty widths. Gives "error" after a refusal; the grid is then as it was, and all files are
/// closed.
Result readItemFileToDesign(TableDesign& design, const Text& fileName, const Text& fileDrive);

/// `Command3` opens the list; its folder is read anew.
void showReferences(TableDesign& design);

/// The selected file of the list has been chosen: the grid becomes its design. A new table gets a memo that names the
/// source. After a refusal, which the user has been told of, the old table is open again. Without a selection it beeps.
void takeReference(TableDesign& design);

/// What is said of the file `entry` of the list as it is reached: its name, number of items and first item. A file that
/// is no K file is only named. It ends in a pause.
Text referenceReading(TableDesign& design, const Text& entry);

/// Puts files, names and items back as they were before the form was opened, without reading anything.
void restoreTable(TableDesign& design);
