#include "edit/forms/input_forms.h"

#include "edit/forms/Form5.h"
#include "edit/forms/FrmBROCK.h"
#include "edit/forms/frmSPITEM.h"
#include "voice/forms/form_table.h"

void addInputForms(FormTable& forms, const FormContext& context, EditScreen& edit) {
    forms.addModal(u"FrmBROCK", [&context](QWidget* owner) { return new FrmBROCK(context, owner); });
    forms.addModal(u"Form5", [&context, &edit](QWidget* owner) { return new Form5(context, edit, owner); });
    forms.addModeless(u"frmSPITEM", [&context, &edit](QWidget* owner) { return new frmSPITEM(context, edit, owner); });
}
