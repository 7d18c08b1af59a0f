#pragma once
// What is put right after an unexpected failure, so that the program goes on with the table as it is on the disk. The
// guard around the handlers of the forms calls it, once, after it has caught a RuntimeFailure; nothing else does.

#include "sheet/zormod.h"

/// Puts the shared state right after `failure`: files 2 to 4 closed, file 1 open, no task word, no stop flag. After a
/// failed row write nothing is read again, so that the typed row is still in the window for the next leave. After
/// anything else the K file is read again, the window refilled, and the selection given up. Never throws: what can't be
/// put right leaves the program without a table.
void putStateRight(ZORMOD& zormod, const RuntimeFailure& failure);
