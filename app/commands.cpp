#include "app/commands.h"

#include "app/block_commands.h"
#include "app/clip_commands.h"
#include "app/input_commands.h"
#include "app/item_commands.h"
#include "app/pointer_commands.h"
#include "app/range_commands.h"
#include "app/record_commands.h"
#include "app/start_commands.h"
#include "app/structure_commands.h"
#include "app/width_commands.h"
#include "edit/jumps.h"
#include "edit/status_update.h"
#include "platform/beeper.h"
#include "platform/forms.h"
#include "platform/screen.h"
#include "voice/announcement.h"
#include "voice/program_end.h"
#include "voice/reading_mode.h"

void CommandTable::bind(TextView name, std::function<void()> routine) {
    routines_.insert_or_assign(Text(name), std::move(routine));
}

void CommandTable::run(TextView name) {
    const auto found = routines_.find(name);
    const std::function<void()> routine = found == routines_.end() ? unbound_ : found->second;
    if (routine) {
        routine();
    }
}

void bindCommands(CommandTable& commands, Routines& routines) {
    ZORMOD& zormod = routines.zormod;
    EditScreen& edit = routines.edit;
    InputBox& box = routines.inputBox;
    TextViewer& viewer = routines.viewer;
    commands.onUnbound([&zormod] {
        zormod.platform.beeper.beep();
        talkS(zormod, u"まだ使えません");
    });
    commands.bind(u"mnuJUMP", mnuJUMP, edit);
    commands.bind(u"mnuHJ", mnuHJ, edit);
    commands.bind(u"mnuEXTD", mnuEXTD, edit);
    commands.bind(u"mnuEXTTOP", mnuEXTTOP, edit);
    commands.bind(u"mnuEXTR", mnuEXTR, edit);
    commands.bind(u"mnuEXTL", mnuEXTL, edit);
    commands.bind(u"mnuHOME", mnuHOME, edit);
    commands.bind(u"mnuCTRLP", mnuCTRLP, edit);
    commands.bind(u"mnuCTRLD", [&box] { box.mnuCTRLD(); });
    commands.bind(u"mnuCTRLU", [&box] { box.mnuCTRLU(); });

    commands.bind(u"mnuDTKN", mnuDTKN, zormod);
    commands.bind(u"mnuDTKEX", mnuDTKEX, zormod);
    commands.bind(u"mnuDTKOFF", mnuDTKOFF, zormod);
    commands.bind(u"mnuJY", mnuJY, zormod);
    commands.bind(u"mnuINH", mnuINH, zormod);

    const auto bindForm = [&](TextView name, TextView form) {
        commands.bind(name, [&zormod, form] { zormod.platform.forms.open(form); });
    };
    bindForm(u"mnuALT", u"frmALT");
    bindForm(u"mnuCTRL", u"frmCTRLK");
    bindForm(u"mnuFKEY", u"frmFUNC");
    bindForm(u"mnuSfunc", u"frmSFUNC");
    for (const HelpFile& help : helpFiles()) {
        commands.bind(help.command, [&viewer, &help] { viewer.showHelp(help); });
        if (help.command == u"menuGENERAL") {
            commands.bind(u"mnuH", [&viewer, &help] { viewer.showHelp(help); });
        }
    }
    commands.bind(u"backToInputBox", [&edit] {
        edit.zormod.platform.screen.redrawView();
        giveInputBoxFocus(edit);
    });
    commands.bind(u"mnuEND", orderlyEnd, zormod);
    bindRangeCommands(commands, routines);
    bindInputCommands(commands, edit);
    bindStartCommands(commands, edit);
    bindStructureCommands(commands, edit);
    bindPointerCommands(commands, routines.pointer);
    bindWidthCommands(commands, routines.width, edit);
    bindRecordCommands(commands, edit);
    bindClipCommands(commands, edit);
    bindItemCommands(commands, edit);
    bindBlockCommands(commands, edit);
}
