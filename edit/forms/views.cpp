#include "edit/forms/views.h"

#include "edit/forms/frmGrid.h"
#include "edit/forms/frmKOJIND.h"
#include "edit/forms/frmSHEET.h"

Views makeViews(const FormContext& context, const ViewActions& actions, QWidget* parent) {
    return {new frmSHEET(context, actions, parent), new frmKOJIND(context, actions, parent),
            new frmGrid(context, actions, parent)};
}
