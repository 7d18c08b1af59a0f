#pragma once
// Enters the forms of this room into the table of forms. main calls it once.

#include "platform/qt/form_context.h"

class FormTable;
class PointerChoice;
class WidthChange;

/// All references outlive every form.
void addStructureForms(FormTable& forms, const FormContext& context, PointerChoice& pointer, WidthChange& width);
