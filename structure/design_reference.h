#pragma once
// Other tables as a source of a design: what a K file says of itself while the list of them is walked, and the filling
// of the grid from one. Called by the reference list of the design form with the names that the list shows.

#include "sheet/item_file.h"
#include "structure/table_design.h"

/// The pattern of the reference list.
inline constexpr TextView referencePattern = u"k?*.txt";
/// Said of a folder without any file for the list.
inline constexpr TextView noReferences = u"現在のﾌｫﾙﾀﾞには該当ﾌｧｲﾙはありませんﾌｫﾙﾀﾞを変更してください";
/// Said when the list is closed.
inline constexpr TextView referencesClosed = u"参照ファイルリストクローズ";

/// Fills the grid from the K file of the data file `fileName` on `fileDrive`: names and alignments trimmed, widths as
/// they stand. It takes a first line without an apostrophe too, an older form of the file; a file of that form that ends
/// behind its names gives empty widths. Gives "error" after a refusal; the grid is then as it was, and all files are
/// closed.
Result readItemFileToDesign(TableDesign& design, const Text& fileName, const Text& fileDrive);

/// The file `entry` of the list has been chosen: the grid becomes its design. A new table gets a memo that names the
/// source. After a refusal, which the user has been told of, the old table is open again.
void takeReference(TableDesign& design, const Text& entry);

/// What is said of the file `entry` of the list as it is reached: its name, number of items and first item. A file that
/// is no K file is only named.
Text referenceReading(ZORMOD& zormod, const Text& folder, const Text& entry);

/// Puts files, names and items back as they were before the form was opened, without reading anything.
void restoreTable(TableDesign& design);
