#pragma once
// The rewriting of all records of the open table for a changed design. Called when the user has said yes to it.

#include "structure/table_design.h"

/// Puts every record of file 1 into the cells of the grid, and the K file with it: memo and items of the open table
/// become those of the design. Both files change together: killed or failed at any moment the table is, when it is opened
/// next, the old pair or the new one. Runs without a form and can't be stopped. False: told to the user, nothing changed.
/// A failure is thrown as it rises; memo and items of the open table are the caller's to put right then.
bool rewriteRecords(TableDesign& design);
