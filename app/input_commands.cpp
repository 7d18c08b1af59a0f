#include "app/input_commands.h"

#include "edit/id_numbering.h"
#include "edit/input_limit.h"
#include "edit/items_to_input.h"
#include "edit/pinned_item.h"

void bindInputCommands(CommandTable& commands, EditScreen& edit) {
    commands.bind(u"mnuSPITEM", mnuSPITEM, edit);
    commands.bind(u"Label3", togglePinnedByClick, edit);
    commands.bind(u"mnuItem", mnuItem, edit);
    commands.bind(u"mnuWHOLE", mnuWHOLE, edit);
    commands.bind(u"Label6", toggleItemsToInput, edit);
    commands.bind(u"mnuIDAUTO", mnuIDAUTO, edit);
    commands.bind(u"mnuLIMIT", mnuLIMIT, edit);
}
