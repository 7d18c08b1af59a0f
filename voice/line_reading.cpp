#include "voice/line_reading.h"

#include "platform/number_text.h"
#include "voice/caret_reading.h"
#include "voice/speech_channel.h"

namespace {

bool isAlongTheLine(Key key) { return key == Key::left || key == Key::right; }

bool isAcrossLines(Key key) {
    switch (key) {
    case Key::up:
    case Key::down:
    case Key::home:
    case Key::end:
    case Key::pageUp:
    case Key::pageDown:
        return true;
    default:
        return false;
    }
}

bool selects(const KeyStroke& stroke) {
    const bool extends = stroke.shift && !stroke.alt && (isAlongTheLine(stroke.key) || isAcrossLines(stroke.key));
    return extends || stroke == ctrlKey(Key::a);
}

/// The direction by which the reading of a selection tells at which end the caret stands.
Key directionOf(Key key) {
    const bool isBackwards = key == Key::left || key == Key::up || key == Key::home || key == Key::pageUp;
    return isBackwards ? Key::left : Key::right;
}

} // namespace

Text lineReading(const LinePlace& place) {
    Text reading;
    if (place.count > 1 && place.number == 0) {
        reading = u"先頭ぎょう";
    } else if (place.count > 1 && place.number == place.count - 1) {
        reading = u"最終ぎょう";
    }
    const Text line = getCLineString(place.line);
    reading += periodPause;
    return reading + (trimmed(line).empty() ? Text(u"空行") : line);
}

Text percentReading(const LinePlace& place) {
    const std::int64_t percent =
        place.characters == 0 ? 0 : std::int64_t{place.caret} * 100 / std::int64_t{place.characters};
    return plainNumber(percent) + u"パーセント位置";
}

void readLineKeys(ZORMOD& zormod, const KeyStroke& stroke, const LinePlace& place, int selectionLength,
                  const std::function<BoxView()>& wholeBox, int& lastSelLength) {
    if (selectionLength == 0) {
        lastSelLength = 0;
    }
    if (stroke == shiftKey(Key::pageDown)) {
        return;
    }
    if (selects(stroke)) {
        readSelection(zormod, wholeBox(), directionOf(stroke.key), lastSelLength);
    } else if (stroke == ctrlKey(Key::pageDown)) {
        sayThrottled(zormod, percentReading(place));
    } else if (stroke == plainKey(Key::f12)) {
        readCaretPosition(zormod, wholeBox());
    } else if (!stroke.alt && isAlongTheLine(stroke.key)) {
        readCaretChar(zormod, place.line);
    } else if (!stroke.alt && isAcrossLines(stroke.key)) {
        sayThrottled(zormod, lineReading(place));
    }
}
