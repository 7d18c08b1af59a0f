#include "edit/forms/range_forms.h"

#include "edit/forms/frmHANI.h"
#include "edit/range_state.h"
#include "voice/forms/form_table.h"

void addRangeForms(FormTable& forms, const FormContext& context, RangeDrawing& drawing) {
    forms.addModeless(rangeForm, [&context, &drawing](QWidget* owner) { return new frmHANI(context, drawing, owner); });
}
