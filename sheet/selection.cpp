#include "sheet/selection.h"

#include "platform/forms.h"
#include "platform/screen.h"

void giveUpSelection(ZORMOD& zormod) {
    zormod.selection = {};
    zormod.platform.screen.hideMask();
    zormod.platform.forms.close(rangeForm);
    zormod.platform.forms.close(pointerForm);
}
