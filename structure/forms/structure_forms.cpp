#include "structure/forms/structure_forms.h"

#include "structure/forms/frmDESIGN.h"
#include "voice/forms/form_table.h"

void addStructureForms(FormTable& forms, const FormContext& context) {
    forms.addModal(u"frmDESIGN", [&context](QWidget* owner) { return new frmDESIGN(context, owner); });
}
