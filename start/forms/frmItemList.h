#pragma once
// The list of the items of a table, to be looked through. Opened by name, from the edit screen and from the choice of a
// file; it shows the items that the shared state holds when it opens.

#include "voice/forms/spoken_dialog.h"

class SpokenList;

/// `frmItemList`: `List1`, the count beneath it, `Command1`. Esc closes it.
class frmItemList : public SpokenDialog {
    Q_OBJECT
public:
    frmItemList(const FormContext& context, QWidget* parent);
};
