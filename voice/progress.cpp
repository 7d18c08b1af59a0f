#include "voice/progress.h"

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "sheet/record_window.h"
#include "voice/speech_channel.h"

namespace {

/// The focus that comes back when the form goes would take the sentence's place at once: the throttle holds it off, or
/// a user could not tell a stopped work from a finished one.
void sayStopped(ZORMOD& zormod) {
    sayText(zormod, u"作業中止");
    zormod.speech.lastSpokenTime = zormod.platform.clock.secondsSinceMidnight();
}

} // namespace

bool loadProgress(ZORMOD& zormod, const Text& name, const Text& progress) {
    zormod.results.answers[0] = 0.0;
    if (zormod.speech.speechMode != 1) {
        return false;
    }
    sayProgress(zormod, name, progress);
    return true;
}

void sayProgress(ZORMOD& zormod, const Text& name, const Text& progress) {
    Text text = name;
    if (!progress.empty()) {
        text += Text(periodPause) + progress;
    }
    sayText(zormod, text);
}

void stopWork(ZORMOD& zormod) {
    zormod.results.answers[0] = 1.0;
    Dialogs& dialogs = zormod.platform.dialogs;
    const Text task = zormod.taskWord;
    if (task == u"labelp" || task == u"PRINT") {
        // Closing gives the focus back to the control that had it.
        dialogs.closeProgress();
        refreshAfterBulk(zormod, task == u"PRINT" ? 1 : 0);
    } else if (task == u"CVZORF") {
        dialogs.closeProgress();
        sayStopped(zormod);
    } else {
        sayStopped(zormod);
        dialogs.closeProgress();
    }
}
