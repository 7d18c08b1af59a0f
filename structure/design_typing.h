#pragma once
// The keys and the checks of `itemin`, the one box through which the cells of the design grid are typed. Enter puts the
// text into the cell if it may stand there and goes on; the arrows move, and put a changed text first. Called by the
// form with the events of the box; the form shows what became of the design.

#include "platform/keys.h"
#include "structure/table_design.h"

/// What is asked of the user in the cell in hand: "項目", number and the sentence of the column.
Text cellPrompt(const TableDesign& design);
/// Says cellPrompt through the throttle: the rule of entering a cell and of the focus of `itemin`.
void sayCellPrompt(const TableDesign& design);
/// The name of the cell in hand, to which the word for a text box is added when the box reads itself.
Text cellLabel(const TableDesign& design);

/// A key down in `itemin`. Taken where the key has a meaning in the grid.
KeyOutcome itemInKeyDown(TableDesign& design, const KeyStroke& stroke, const BoxView& box);

/// A cell is chosen with the mouse. False if what was typed in the old one was refused.
bool pickDesignCell(TableDesign& design, int row, DesignColumn column);

/// Puts the text of `itemin` into its cell if it differs. False if it was refused, which the user has been told.
bool takeTypedCell(TableDesign& design);
