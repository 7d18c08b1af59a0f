#pragma once
// The forms of this room for the table of forms. main calls it, and the desk tests do.

#include "platform/qt/form_context.h"

class FormTable;

/// Adds FrmLunch, frmDISK and frmItemList. `context` outlives the table.
void addStartForms(FormTable& forms, const FormContext& context);
