#pragma once
// What must hold of the two files of a table at any time, and of the window on them, whatever was done before.

#include "tests/monkey/row_rules.h"

/// The data file has whole records. Of no meaning while an operation shows its progress.
Complaint lengthFits(MonkeyDesk& desk);
/// The data file has whole records, and the position lies in the table.
Complaint positionFits(const Seen& now);
/// Each row of the window but the current one shows its record as it lies in the file.
Complaint windowShowsTheFile(MonkeyDesk& desk, const Seen& now);
/// Puts the widths that the K file tells in place of those that are only being tried.
void takeWidthsOfTheFile(Seen& now);
/// The K file says the items that the program works with, they fit into a record, and the text of each record
/// comes back when it is written and read again.
Complaint pairIsWhole(const CodePage& codePage, const Seen& now);
/// The work of no operation lies about in the folder or below it: no hidden file, whatever wrote it, and no work file.
Complaint nothingIsLeftBehind(const std::string& folder);
