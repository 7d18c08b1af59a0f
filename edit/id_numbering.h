#pragma once
// ID numbers that count by themselves: while it is on, each step to the next or the previous record writes the next or
// the previous number into item 0 there (edit/movement). Jumps end it (edit/jumps).

#include "edit/edit_screen.h"

/// The menu entry and a click on Label4. Off: asks for the first number, writes it into the current record's row, and
/// shows it with its mark behind; the next status update puts the mark in front. On: ends it. A table without items
/// behind the ID is told that it can't.
void mnuIDAUTO(EditScreen& edit);
