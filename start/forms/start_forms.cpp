#include "start/forms/start_forms.h"

#include "start/forms/FrmLunch.h"
#include "start/forms/frmDISK.h"
#include "start/forms/frmItemList.h"
#include "voice/forms/form_table.h"

void addStartForms(FormTable& forms, const FormContext& context) {
    forms.addModeless(u"FrmLunch", [&context](QWidget*) { return new FrmLunch(context, nullptr); });
    forms.addModal(u"frmDISK", [&context](QWidget* owner) { return new frmDISK(context, owner); });
    forms.addModal(u"frmItemList", [&context](QWidget* owner) { return new frmItemList(context, owner); });
}
