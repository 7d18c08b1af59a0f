#pragma once
// The four single steps of the current cell. At the end of a record a step goes on in the next one, and the file grows
// simply by stepping past its end and typing. Without a table every step beeps and stays. A row that can't be written
// is thrown before anything has moved or the input box has been emptied.

#include "edit/edit_screen.h"

/// To the next item that takes input; behind the last one to the next record.
void nextItem(EditScreen& edit);
/// To the item before, whatever takes input; before item 0 to the last item of the record before.
void prevItem(EditScreen& edit);
/// To the next record, at most one behind the last; leaves the current row safely on the disk.
void nextRecord(EditScreen& edit);
/// To the record before; leaves the current row safely on the disk.
void prevRecord(EditScreen& edit);

/// Writes the ID counter into item 0 of the current record's row: the trimmed number, left only if the item's
/// alignment is exactly "L", right otherwise.
void applyIdAuto(EditScreen& edit);

/// True if the input box holds nothing but half-width blanks: what keys and menu entries take as empty. Enter alone
/// takes blanks as data.
bool boxIsEmpty(const EditScreen& edit);

/// Puts what is typed into the current cell of the window, unless the box is empty; the box keeps its text. True if
/// there was something to put.
bool commitTypedText(EditScreen& edit);

/// Beeps and gives true if no table is open.
bool beepsWithoutTable(ZORMOD& zormod);
