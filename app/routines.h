#pragma once
// The routines of the program that keep something between two events, one of each. main makes them behind the shared
// state and hands them to the forms that show them and to the table of commands that starts them.

#include "edit/input_box.h"
#include "edit/range_drawing.h"
#include "edit/status_update.h"
#include "output/text_viewer.h"
#include "structure/pointer_choice.h"
#include "structure/width_change.h"

/// One of each, on the same shared state.
struct Routines {
    explicit Routines(ZORMOD& state)
        : zormod(state), edit(state), inputBox(edit), rangeDrawing(edit), viewer(state), pointer(edit), width(edit) {
        connectPositionBoxes(edit);
    }

    ZORMOD& zormod;
    EditScreen edit;
    InputBox inputBox;
    RangeDrawing rangeDrawing;
    TextViewer viewer;
    PointerChoice pointer;
    WidthChange width;
};
