#include "voice/caret_reading.h"

#include "platform/number_text.h"
#include "voice/announcement.h"
#include "voice/character_names.h"
#include "voice/speech_channel.h"

#include <algorithm>

namespace {

constexpr char16_t lineEnd = u'\r';
/// Characters said on either side of the caret.
constexpr std::size_t charactersAround = 10;

/// The text of a box, cut at the caret.
struct CutText {
    TextView before;
    TextView behind;
};

CutText cutAtCaret(const BoxView& box) {
    const TextView text = box.text;
    const auto caret = static_cast<std::size_t>(std::clamp(box.caret, 0, static_cast<int>(text.size())));
    return {text.substr(0, caret), text.substr(caret)};
}

/// The part of the caret's line ahead of the caret.
TextView lineHead(TextView before) {
    TextView head = before.substr(before.rfind(lineEnd) + 1); // npos + 1 is the start of the text
    const std::size_t first = head.find_first_not_of(u"\r\n");
    return first == TextView::npos ? TextView() : head.substr(first);
}

Text lineWord(const CutText& text) {
    if (text.behind.find(lineEnd) != TextView::npos) {
        return plainNumber(std::ranges::count(text.before, lineEnd) + 1) + u"ぎょう";
    }
    return text.before.find(lineEnd) != TextView::npos ? u"最終ぎょう" : u"";
}

TextView lastCharacters(TextView text) {
    return text.substr(text.size() - std::min(text.size(), charactersAround));
}

/// The words that tell at which end of the selection the caret stands; none if its length is what it was.
TextView caretEnd(Key key, int length, int lastLength) {
    if (length == lastLength) {
        return {};
    }
    const bool isAtStart = (key == Key::left) == (length > lastLength);
    return isAtStart ? u" ﾊｼﾞﾒﾆ ｱﾘﾏｽ" : u" ｵﾜﾘﾆ ｱﾘﾏｽ";
}

TextView selectedText(const BoxView& box) {
    return TextView(box.text).substr(std::min(box.text.size(), static_cast<std::size_t>(box.selectionStart)),
                                     static_cast<std::size_t>(box.selectionLength));
}

} // namespace

Text caretPositionReading(const BoxView& box) {
    const CutText text = cutAtCaret(box);
    const TextView head = lineHead(text.before);
    // With the caret right before a line end the whole remaining text counts, line end included.
    const std::size_t distance = text.behind.find(lineEnd);
    const TextView rest = distance == 0 ? text.behind : text.behind.substr(0, distance);
    Text reading = text.before.empty() ? u"先頭ぎょう" : u"";
    reading += lineWord(text);
    reading += plainNumber(head.size() + 1);
    reading += u"もじめ";
    reading += lastCharacters(head);
    reading += u"キャレット";
    reading += rest.substr(0, charactersAround);
    return reading;
}

void readCaretPosition(ZORMOD& zormod, const BoxView& box) {
    if (throttlePasses(zormod)) {
        sayText(zormod, caretPositionReading(box));
    }
}

void readCaretChar(ZORMOD& zormod, const BoxView& box) {
    if (!box.text.empty() && throttlePasses(zormod)) {
        sayText(zormod, charReading(cutAtCaret(box).behind.substr(0, 1)));
    }
}

Text getCLineString(const BoxView& box) {
    const CutText text = cutAtCaret(box);
    return Text(lineHead(text.before)).append(text.behind.substr(0, text.behind.find(lineEnd)));
}

void readSelection(ZORMOD& zormod, const BoxView& box, Key key, int& lastSelLength) {
    const int lastLength = lastSelLength;
    lastSelLength = box.selectionLength;
    if (box.selectionLength == 0 || !throttlePasses(zormod)) {
        return;
    }
    Text reading(selectedText(box));
    reading += periodPause;
    reading += u"ｶﾞｾﾝﾀｸｻﾚﾃｲﾏｽ.ｶｰｿﾙﾜ ﾖﾐｱｹﾞｹﾞﾝｺｳﾉ ";
    reading += caretEnd(key, box.selectionLength, lastLength);
    sayText(zormod, reading);
}

void readBoxKeys(ZORMOD& zormod, const KeyStroke& stroke, const BoxView& box, TextView label, int& lastSelLength) {
    if (box.selectionLength == 0) {
        lastSelLength = 0;
    }
    if (stroke == shiftKey(Key::left) || stroke == shiftKey(Key::right)) {
        if (!box.text.empty()) {
            readSelection(zormod, box, stroke.key, lastSelLength);
        }
    } else if (stroke == shiftKey(Key::pageDown) || stroke == ctrlShiftKey(Key::s)) {
        sayThrottled(zormod, (box.text + Text(commaPause)).append(label));
    } else if (stroke == plainKey(Key::f12)) {
        readCaretPosition(zormod, box);
    } else if (stroke == plainKey(Key::left) || stroke == plainKey(Key::right)) {
        readCaretChar(zormod, box);
    } else if (stroke == plainKey(Key::shift)) {
        sayThrottled(zormod, trimmed(box.text).empty() ? Text(u"ブランク") : box.text);
    }
}
