#pragma once
// What the boxes beside the input box are called. A leaf: the status update and the side boxes themselves speak with
// these names; nothing is decided here.

#include "platform/screen.h"

/// What a side box is called when it gets the focus, with the word for a text box: "行番号ﾃｷｽﾄﾎﾞｯｸｽ" and its like. A
/// field that is no box has only the word.
Text sideBoxLabel(PanelField field);

/// What the reading keys of the two position boxes call them; empty for the others, whose reading keys use the label.
TextView readingKeyName(PanelField field);
