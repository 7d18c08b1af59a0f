#pragma once
// Enters the forms of this room into the table of forms. main calls it once.

#include "platform/qt/form_context.h"

class FormTable;

/// `context` outlives every form.
void addStructureForms(FormTable& forms, const FormContext& context);
