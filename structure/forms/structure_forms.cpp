#include "structure/forms/structure_forms.h"

#include "structure/forms/frmDESIGN.h"
#include "structure/forms/frmFLN.h"
#include "structure/forms/frmMSSG.h"
#include "voice/forms/form_table.h"

void addStructureForms(FormTable& forms, const FormContext& context, PointerChoice& pointer, WidthChange& width) {
    forms.addModal(u"frmDESIGN", [&context](QWidget* owner) { return new frmDESIGN(context, owner); });
    forms.addModeless(u"frmMSSG", [&context, &pointer](QWidget* owner) { return new frmMSSG(context, pointer, owner); });
    forms.addModeless(u"frmFLN", [&context, &width](QWidget* owner) { return new frmFLN(context, width, owner); });
}
