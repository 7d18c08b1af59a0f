#pragma once
// How the program starts: the settings every run begins with, and the road from a file name on the command line into a
// table.

#include "edit/edit_screen.h"

/// Sets the start-up values of the shared state and of the speech channel: the user's clipboard text, the program
/// folder, the sample scoring board, the reading mode of the last run. Says nothing. Called once, before any form is
/// shown.
void enterProgram(ZORMOD& zormod);

/// Opens the table that the command line names and shows it. `argument` is the whole text of the command line. A table
/// that is refused or in use elsewhere has been told of and leaves the edit screen without a table. A failure behind
/// the opening is a FatalFailure.
void openFromCommandLine(EditScreen& edit, const Text& argument);
