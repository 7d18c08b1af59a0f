#include "app/input_commands.h"

#include "edit/id_numbering.h"
#include "edit/input_limit.h"
#include "edit/items_to_input.h"
#include "edit/pinned_item.h"

void bindInputCommands(CommandTable& commands, EditScreen& edit) {
    const auto bind = [&](TextView name, void (*routine)(EditScreen&)) {
        commands.bind(name, [&edit, routine] { routine(edit); });
    };
    bind(u"mnuSPITEM", mnuSPITEM);
    bind(u"Label3", togglePinnedByClick);
    bind(u"mnuItem", mnuItem);
    bind(u"mnuWHOLE", mnuWHOLE);
    bind(u"Label6", toggleItemsToInput);
    bind(u"mnuIDAUTO", mnuIDAUTO);
    bind(u"mnuLIMIT", mnuLIMIT);
}
