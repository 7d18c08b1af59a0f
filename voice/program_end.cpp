#include "voice/program_end.h"

#include "platform/dialogs.h"
#include "platform/failure.h"
#include "sheet/record_file.h"
#include "voice/reading_mode.h"
#include "voice/speech_channel.h"

void orderlyEnd(ZORMOD& zormod) {
    if (zormod.speech.speechMode != 0) {
        waitSeconds(zormod, zormod.speech.inhibitSeconds);
        sayFarewell(zormod);
    }
    closeAllFiles(zormod);
    try {
        writeZorTalk(zormod);
    } catch (const RuntimeFailure& failure) {
        // Who wants to leave must be able to; the mode of next time is all that is lost.
        zormod.platform.dialogs.showMessage(Text(failureText(failure.kind)), Text(failureTitle));
    }
    throw ProgramEnd{EndKind::orderly};
}

void farewellEnd(ZORMOD& zormod) {
    waitSeconds(zormod, zormod.speech.inhibitSeconds);
    sayFarewell(zormod);
    closeAllFiles(zormod);
    throw ProgramEnd{EndKind::farewellOnly};
}

void endAtOnce(ZORMOD& zormod) {
    closeAllFiles(zormod);
    throw ProgramEnd{EndKind::atOnce};
}
