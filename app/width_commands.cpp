#include "app/width_commands.h"

#include "edit/input_keys.h"
#include "edit/side_boxes.h"
#include "structure/alignment_change.h"

void bindWidthCommands(CommandTable& commands, WidthChange& width, EditScreen& edit) {
    commands.bind(u"mnuFLN", [&width] { width.start(); });
    commands.bind(widenItemCommand, [&width] { width.startWidening(); });
    commands.bind(narrowItemCommand, [&width] { width.startNarrowing(); });
    commands.bind(u"mnuRL", mnuRL, edit);
    commands.bind(changeAlignmentCommand, changeAlignment, edit);
}
