#include "voice/speech_channel.h"

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/number_text.h"
#include "platform/waiting.h"

#include <cmath>

namespace {

/// Seconds in which the farewell is heard before the user's clipboard text takes its place.
constexpr double farewellSeconds = 2.5;

void dropLeading(Text& text, TextView pause) {
    if (text.starts_with(pause)) {
        text.erase(0, pause.size());
    }
}

} // namespace

void sayText(ZORMOD& zormod, Text& text) {
    if (zormod.speech.speechMode == 0) {
        return;
    }
    dropLeading(text, periodPause);
    dropLeading(text, commaPause);
    keepUserClipboard(zormod);
    // A text that can't be written is not spoken; the next one tries again.
    zormod.platform.clipboard.write(text + zormod.speech.speechMark);
}

void sayText(ZORMOD& zormod, Text&& text) {
    sayText(zormod, text);
}

bool throttlePasses(ZORMOD& zormod) {
    SpeechState& speech = zormod.speech;
    if (speech.speechMode == 0) {
        return false;
    }
    const double now = zormod.platform.clock.secondsSinceMidnight();
    // The absolute value keeps speech alive after midnight, when the clock has fallen back.
    if (std::abs(speech.lastSpokenTime - now) <= speech.inhibitSeconds) {
        return false;
    }
    speech.lastSpokenTime = now;
    return true;
}

void sayThrottled(ZORMOD& zormod, Text text) {
    if (throttlePasses(zormod)) {
        sayText(zormod, text);
    }
}

void keepUserClipboard(ZORMOD& zormod) {
    ClipboardText found = zormod.platform.clipboard.read();
    if (found.ok && !found.text.ends_with(zormod.speech.speechMark)) {
        zormod.speech.userClipboard = std::move(found.text);
    }
}

void rememberCopied(ZORMOD& zormod) {
    ClipboardText found = zormod.platform.clipboard.read();
    if (found.ok) {
        zormod.speech.userClipboard = std::move(found.text);
    }
}

void offerUserClipboard(ZORMOD& zormod) {
    if (zormod.speech.speechMode != 0) {
        zormod.platform.clipboard.write(zormod.speech.userClipboard);
    }
}

void sayFarewell(ZORMOD& zormod) {
    if (zormod.speech.speechMode == 0) {
        return;
    }
    sayText(zormod, u"ﾛﾐｶ ｼｭｳﾘｮｳ");
    waitSeconds(zormod, farewellSeconds);
    zormod.platform.clipboard.clear();
    zormod.platform.clipboard.write(zormod.speech.userClipboard);
}

void waitSeconds(ZORMOD& zormod, double seconds) {
    waitOnClock(zormod.platform.clock, seconds);
}

void cycleSpeedMark(ZORMOD& zormod, int& index) {
    index = index == 9 ? 0 : index + 1;
    const auto fullWidthDigit = static_cast<char16_t>(u'０' + index);
    sayThrottled(zormod, Text(u"＜速さ") + fullWidthDigit + u"＞速度調整" + plainNumber(index));
}
