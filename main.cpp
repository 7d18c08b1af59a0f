// Puts the program together: the real world behind its interfaces, the one shared state, the edit screen, and the event
// loop. Nothing is decided here.

#include "app/commands.h"
#include "app/entry.h"
#include "app/menus.h"
#include "edit/forms/Form1.h"
#include "edit/forms/input_forms.h"
#include "edit/forms/range_forms.h"
#include "output/forms/frmHelp.h"
#include "output/forms/print_talk.h"
#include "platform/code_page.h"
#include "platform/posix/native_names.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/start_paths.h"
#include "platform/posix/system_clock.h"
#include "platform/qt/desktop_beeper.h"
#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/keeper_clipboard.h"
#include "platform/qt/keys_ahead.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/romika_application.h"
#include "platform/qt/turn_giver.h"
#include "platform/qt/x11_keyboard.h"
#include "platform/screen_link.h"
#include "sheet/failure_recovery.h"
#include "start/forms/start_forms.h"
#include "structure/forms/structure_forms.h"
#include "voice/forms/form_table.h"
#include "voice/forms/key_guide.h"
#include "voice/forms/message_dialogs.h"
#include "voice/forms/modal_runner.h"

#include <QTimer>

namespace {

/// All arguments, joined by one blank: file names with blanks need no quoting.
Text commandLine(int argc, char** argv) {
    Text text;
    for (int i = 1; i < argc; ++i) {
        text += (i == 1 ? u"" : u" ") + textFromNative(argv[i]);
    }
    return trimmed(text);
}

} // namespace

int main(int argc, char** argv) {
    const Text argument = commandLine(argc, argv);
    RomikaApplication application(argc, argv);

    KeeperClipboard clipboard(besideProgram("romika-clipboard"));
    SystemClock clock;
    DesktopBeeper beeper;
    PosixFiles files(defaultDrives(), startFolder());
    files.lookForMedia(mountedMedia);
    const CodePage codePage;
    MessageDialogs dialogs;
    ScreenLink screen;
    CommandTable commands;
    FormTable forms;
    TurnGiver eventLoop;
    QtPrinter printer;
    ZORMOD zormod(Platform{clipboard, clock, beeper, files, codePage, dialogs, screen, commands, forms, eventLoop,
                           printer});

    EventGuard guard(zormod, [](int status) { QCoreApplication::exit(status); });
    guard.setCleanup([&](const RuntimeFailure& failure) { putStateRight(zormod, failure); });
    application.setGuard(&guard);
    eventLoop.setGuard(guard);
    KeysAhead keysAhead(eventLoop, beeper);
    HeldKeys heldKeys([&](quint32 scanCode) { return isKeyUp(scanCode) && !keysAhead.isReleaseWaiting(scanCode); });
    keysAhead.watch();
    ModalRunner modals(guard, heldKeys);
    const FormContext context{zormod, guard, heldKeys, modals};
    dialogs.setContext(context);
    forms.setContext(context);
    addKeyGuides(forms, context);
    Routines routines(zormod);
    addStructureForms(forms, context, routines.pointer, routines.width);
    addTextViewer(forms, context, routines.viewer);
    addRangeForms(forms, context, routines.rangeDrawing);
    addInputForms(forms, context, routines.edit);
    printer.setTalk(printTalk(context));

    bindCommands(commands, routines);
    Form1 form(context, routines.edit, routines.inputBox, form1Menus());
    screen.connectTo(&form);
    forms.addStanding(u"Form1", form);
    addStartForms(forms, context);

    guard.run([&] { enterProgram(zormod); });
    // Between two forms no window is open for a moment; the program ends by its own rules.
    QApplication::setQuitOnLastWindowClosed(false);
    if (argument.empty()) {
        guard.run([&] { forms.open(u"FrmLunch"); });
    } else {
        form.show();
        // In the event loop, so that a refusal can show its message and an end of the program ends the loop.
        QTimer::singleShot(0, &form, guard.wrap([&] { openFromCommandLine(routines.edit, argument); }));
    }
    // An end that rose before the loop runs would be forgotten by it.
    if (!guard.isEndPending()) {
        QApplication::exec();
    }
    forms.destroyOpenForms();
    application.setGuard(nullptr);
    return guard.exitStatus();
}
