#pragma once
// The two ways out of the design form: accepting the design, which checks it, asks about records that would be cut
// differently, writes the K file and opens the table; and giving up, which puts everything back. The form does what the
// outcome says and decides nothing.

#include "structure/table_design.h"

/// What the form does next.
enum class DesignOutcome {
    closed,     ///< it closes
    stays,      ///< it stays as it is
    toFileName, ///< the focus goes to `text3`
    toGrid,     ///< the focus goes to `itemin`
};

/// `Command1`. The design goes to the table named in `text3`: its K file is written whole, its data file made if there
/// is none; records that are there stay. Only a changed design of the open table under its own name may rewrite records,
/// and only after the user has said so. A table that another running copy has open is refused. After every failure the
/// table that was open is open again.
DesignOutcome acceptDesign(TableDesign& design);

/// `Command2` and Esc. An open reference list is closed first, and that is all. Without a table and without a task the
/// user is asked whether the program shall end.
DesignOutcome giveUpDesign(TableDesign& design);
