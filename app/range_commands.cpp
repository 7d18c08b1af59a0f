#include "app/range_commands.h"

#include "edit/range_keys.h"
#include "edit/range_reading.h"
#include "edit/status_update.h"

void bindRangeCommands(CommandTable& commands, Routines& routines) {
    RangeDrawing& drawing = routines.rangeDrawing;
    commands.bind(startBlockRangeCommand, [&drawing] { drawing.start(RangeKind::block); });
    commands.bind(startRecordRangeCommand, [&drawing] { drawing.start(RangeKind::records); });
    commands.bind(startItemRangeCommand, [&drawing] { drawing.start(RangeKind::items); });
    commands.bind(focusRangeBoxCommand, [&drawing] { drawing.takeFocus(); });
    commands.bind(stepRangeCommand, [&drawing] { drawing.keyUp(plainKey(Key::other)); });
    commands.bind(readRangeCommand, Hread, routines.zormod);
}
