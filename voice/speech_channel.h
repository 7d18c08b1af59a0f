#pragma once
// The one way in which the program talks to its user: a text is put on the clipboard with a mark behind it, and a
// reading program that watches the clipboard speaks it. The program knows nothing else about speech. Texts that come
// too fast are dropped, never queued, so what is heard always belongs to where the user is now; and the user's own
// clipboard text is kept safe meanwhile.

#include "sheet/zormod.h"

/// The kinds of pause between the parts of a spoken text.
inline constexpr TextView periodPause = u"。";
inline constexpr TextView commaPause = u"､";

/// Speaks `text` at once, without looking at the clock. Nothing happens while `speechMode` is 0. One leading "。" and
/// then one leading "､" are taken off first: they are left over from empty parts of composed texts; the caller's
/// string comes back shortened by them. Failures of the clipboard are swallowed: the text is not spoken, that is all.
void sayText(ZORMOD& zormod, Text& text);
void sayText(ZORMOD& zormod, Text&& text);

/// The throttle test: true if speech is on and more than `inhibitSeconds` have passed since the last text that passed;
/// then the time of this one is noted. Every reading that answers a key or a focus change asks it first.
bool throttlePasses(ZORMOD& zormod);

/// sayText behind the throttle test.
void sayThrottled(ZORMOD& zormod, Text text);

/// Remembers the clipboard's text as the user's own unless it ends in our mark. A clipboard without text empties the
/// memory; one that can't be read leaves it.
void keepUserClipboard(ZORMOD& zormod);

/// Reads the clipboard into the memory as it is, mark included: the user has just copied.
void rememberCopied(ZORMOD& zormod);

/// Puts the user's own text on the clipboard so that the paste that follows inserts it; only while speech is on.
void offerUserClipboard(ZORMOD& zormod);

/// Says good-bye, waits until it has been heard and gives the user's clipboard text back; nothing with speech off.
void sayFarewell(ZORMOD& zormod);

/// Waits `seconds` without handling any event, so that one text is heard before the next. A clock that runs backwards
/// meanwhile (midnight) is a RuntimeFailure of kind overflow.
void waitSeconds(ZORMOD& zormod, double seconds);

/// Steps the speed of the reading program: sends the next of ten marks from "＜速さ０＞速度調整0" to
/// "＜速さ９＞速度調整9". `index` is the form's own counter, 0..9, and wraps. No key is bound to it.
void cycleSpeedMark(ZORMOD& zormod, int& index);

/// Holds `speechMode` at 0 for the life of the object, for changes of watched boxes that nobody is to hear.
class SilentScope {
public:
    explicit SilentScope(ZORMOD& zormod) : zormod_(zormod), held_(zormod.speech.speechMode) {
        zormod_.speech.speechMode = 0;
    }
    ~SilentScope() { zormod_.speech.speechMode = held_; }
    SilentScope(const SilentScope&) = delete;
    SilentScope& operator=(const SilentScope&) = delete;

private:
    ZORMOD& zormod_;
    std::int16_t held_;
};
