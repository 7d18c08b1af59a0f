#include "app/pointer_commands.h"

#include "edit/jumps.h"
#include "edit/range_keys.h"
#include "edit/status_update.h"

void bindPointerCommands(CommandTable& commands, PointerChoice& pointer) {
    commands.bind(moveRangeItemsLeftCommand, [&pointer] { pointer.startItems(Towards::start); });
    commands.bind(moveRangeItemsRightCommand, [&pointer] { pointer.startItems(Towards::end); });
    commands.bind(moveRangeRecordsUpCommand, [&pointer] { pointer.startRecords(Towards::start); });
    commands.bind(moveRangeRecordsDownCommand, [&pointer] { pointer.startRecords(Towards::end); });
    commands.bind(moveRangeBlockCommand, [&pointer] { pointer.startBlock(u"move"); });
    commands.bind(copyRangeBlockCommand, [&pointer] { pointer.startBlock(u"copy"); });
    commands.bind(u"mnuMITEM", [&pointer] { pointer.mnuMITEM(); });
    commands.bind(u"mnuMREC", [&pointer] { pointer.mnuMREC(); });
    commands.bind(u"mnuCOPY", [&pointer] { pointer.mnuCOPY(); });
    commands.bind(u"mnuMOVE", [&pointer] { pointer.mnuMOVE(); });
    commands.bind(focusPointerBoxCommand, [&pointer] { pointer.focusBox(); });
    commands.bind(pointerJumpedCommand, [&pointer] { pointer.jumped(); });
}
