#pragma once
// The form in which the items to input are chosen. Opened by name; what it does is in edit/items_to_input.h.

#include "edit/items_to_input.h"
#include "voice/forms/spoken_dialog.h"

class SpokenList;

/// `Form5`: `Label1`, `Grid1` with a line an item, `Command1`. A key or a click in the list marks the item, Esc gives
/// up.
class Form5 : public SpokenDialog {
    Q_OBJECT
public:
    /// `edit` outlives the form.
    Form5(const FormContext& context, EditScreen& edit, QWidget* parent);

private:
    KeyOutcome keyDown(const KeyStroke& stroke);
    void toggle(int item);

    ItemsToInput choice_;
    SpokenList* Grid1;
};
