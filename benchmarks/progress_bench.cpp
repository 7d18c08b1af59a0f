// What the progress form costs a rewrite of a whole table of 1,000,000 records: the real form, on the toolkit's offscreen
// platform, and a turn of the real event loop as often as the program gives one, against the same rewrite without
// either. Each figure is taken right beside its counterpart, and the middle of their ratios counts, because the disk is
// not equally fast at all times.

#include "measure.h"
#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/romika_application.h"
#include "platform/qt/turn_giver.h"
#include "sheet/bulk_rewrite.h"
#include "support/test_world.h"
#include "table_generator.h"
#include "voice/forms/form_table.h"
#include "voice/forms/message_dialogs.h"
#include "voice/forms/modal_runner.h"

#include <QEvent>
#include <QWidget>

#include <cstdlib>

namespace {

constexpr std::int64_t records = 1000000;
constexpr int rounds = 7;

/// Counts how often the form was really painted.
class PaintCount : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && event->type() == QEvent::Paint && widget->window()->objectName() == u"frmDOE") {
            ++paints;
        }
        return false;
    }
    int paints = 0;
};

double rewriteTime(ZORMOD& zormod, const BulkJob& job) {
    return microseconds([&] {
        if (bulkRewrite(zormod, job, [](BulkRun& run) { run.copy(1, run.records()); }) != BulkEnd::done) {
            giveUp("bulkRewrite");
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    RomikaApplication application(argc, argv);
    PaintCount paints;
    application.installEventFilter(&paints);

    TestWorld world;
    MessageDialogs dialogs;
    FormTable forms;
    TurnGiver turns;
    ZORMOD zormod(Platform{world.clipboard, world.clock, world.beeper, world.files, world.codePage, dialogs, world.screen,
                           world.commands, forms, turns, world.printer});
    EventGuard guard(zormod, [](int) {});
    application.setGuard(&guard);
    turns.setGuard(guard);
    HeldKeys heldKeys;
    ModalRunner modals(guard, heldKeys);
    const FormContext context{zormod, guard, heldKeys, modals};
    dialogs.setContext(context);
    forms.setContext(context);
    zormod.file.programFolder = world.zormod.file.programFolder;
    openGeneratedTable(zormod, world.folder.path(), records);
    const Bytes table = world.bytesOf("t.txt");

    rewriteTime(zormod, {}); // what the first one pays for is no cost of the form
    std::vector<double> ratios;
    for (int i = 0; i < rounds; ++i) {
        const double plain = rewriteTime(zormod, {});
        ratios.push_back(rewriteTime(zormod, {.name = u"行挿入中"}) / plain);
    }
    const bool kept = report("progress: rewrite of 1,000,000 records with the form against without", median(ratios), "x", 1.3);
    std::printf("%-74s %10d\n", "progress: times that the form was painted meanwhile", paints.paints);
    return kept && paints.paints > rounds && world.bytesOf("t.txt") == table ? 0 : 1;
}
