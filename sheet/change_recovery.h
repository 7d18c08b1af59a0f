#pragma once
// What becomes of a change in place (sheet/change_journal.h) that was killed or failed. finishInterrupted calls it at every
// opening of a table, after a failure, and before the next change.
//
// A journal that isn't whole was never finished, and the table was not touched: it is dropped. If the table holds all of
// the old records, or all of the new ones, it is whole; the same bytes are written once more, because only then they are
// sure to be on the disk, and if that can't be done the journal stays. If each of them is the old one, the new one, or
// torn between the two, the new ones are written. Anything else is another table, brought back from a backup, edited or
// replaced: it is left alone, the journal gets another name, and the user is told. The table is known by what it holds,
// not by its place on the disk, which a restart may change on some media.

#include "sheet/zormod.h"

/// Works off the journal beside the table. Nothing happens without one. The caller holds the claim on the table. A
/// RuntimeFailure of kind file if the table can't be put right: it must not be opened then.
void finishChange(ZORMOD& zormod, const Text& fileName, const Text& drive);
