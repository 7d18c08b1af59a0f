#pragma once
// The rewriting of all records of the open table for a changed design. Called when the user has said yes to it.

#include "structure/table_design.h"

/// Puts every record of file 1 into the cells of the grid. The K file is not written here.
void rewriteRecords(TableDesign& design);
