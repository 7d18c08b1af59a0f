#pragma once
// Enters the forms of ranges into the table of forms. main calls it once.

#include "platform/qt/form_context.h"

class FormTable;
class RangeDrawing;

/// Both references outlive every form.
void addRangeForms(FormTable& forms, const FormContext& context, RangeDrawing& drawing);
