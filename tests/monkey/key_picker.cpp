#include "tests/monkey/key_picker.h"

#include <array>

namespace {

using Kind = MonkeyKey::Kind;
using Place = Situation::Place;

MonkeyKey press(const KeyStroke& stroke) {
    return {Kind::press, stroke};
}

// The keys of the input box's tables, the frequent ones several times.
constexpr std::array<KeyStroke, 40> moves = {
    plainKey(Key::down),     plainKey(Key::down),   plainKey(Key::down),     plainKey(Key::up),
    plainKey(Key::up),       plainKey(Key::right),  plainKey(Key::right),    plainKey(Key::left),
    plainKey(Key::left),     ctrlKey(Key::down),    ctrlKey(Key::up),        ctrlKey(Key::right),
    ctrlKey(Key::left),      plainKey(Key::pageUp), plainKey(Key::pageDown), ctrlKey(Key::t),
    ctrlShiftKey(Key::t),    plainKey(Key::insert), plainKey(Key::del),      ctrlShiftKey(Key::insert),
    plainKey(Key::space),    plainKey(Key::end),    plainKey(Key::home),     plainKey(Key::backspace),
    shiftKey(Key::space),    ctrlKey(Key::space),   ctrlKey(Key::keypad0),   ctrlKey(Key::keypad1),
    shiftKey(Key::pageDown), ctrlShiftKey(Key::s),  ctrlKey(Key::pageDown),  ctrlShiftKey(Key::pageDown),
    ctrlKey(Key::pageUp),    ctrlShiftKey(Key::r),  shiftKey(Key::pageUp),   ctrlShiftKey(Key::q),
    altKey(Key::n),          altKey(Key::m),        altKey(Key::g),          plainKey(Key::f12)};
constexpr std::array<KeyStroke, 10> ranges = {
    shiftKey(Key::up), shiftKey(Key::down), shiftKey(Key::left), shiftKey(Key::right), altKey(Key::up),
    altKey(Key::down), altKey(Key::left),   altKey(Key::right),  ctrlKey(Key::k),      shiftKey(Key::down)};
constexpr std::array<KeyStroke, 12> onRange = {plainKey(Key::del),  plainKey(Key::insert), plainKey(Key::up),
                                               plainKey(Key::down), plainKey(Key::left),   plainKey(Key::right),
                                               ctrlKey(Key::up),    ctrlKey(Key::down),    ctrlKey(Key::left),
                                               ctrlKey(Key::right), plainKey(Key::shift),  plainKey(Key::enter)};
constexpr std::array<KeyStroke, 12> arrows = {plainKey(Key::up),    plainKey(Key::down),   plainKey(Key::left),
                                              plainKey(Key::right), plainKey(Key::up),     plainKey(Key::down),
                                              plainKey(Key::left),  plainKey(Key::right),  plainKey(Key::home),
                                              plainKey(Key::end),   plainKey(Key::pageUp), plainKey(Key::pageDown)};
constexpr std::array<KeyStroke, 12> editing = {ctrlKey(Key::c),       ctrlKey(Key::v),      ctrlKey(Key::x),
                                               shiftKey(Key::insert), ctrlKey(Key::insert), shiftKey(Key::del),
                                               plainKey(Key::del),    plainKey(Key::home),  plainKey(Key::backspace),
                                               shiftKey(Key::left),   shiftKey(Key::end),   ctrlKey(Key::z)};
constexpr std::array<TextView, 8> numbers = {u"1", u"2", u"3", u"0", u"-1", u"99999", u"1-2", u"１"};
constexpr std::array<TextView, 5> names = {u"a", u"新表", u"t.txt", u"b.txt", u"b"};
constexpr std::array<TextView, 5> foreignTexts = {u"他のﾃｷｽﾄ", u"a\r\nb", u"", u"1\t2", u"山。｡."};

} // namespace

MonkeyKey KeyPicker::next(const Situation& situation) {
    if (queue_.empty()) {
        return pick(situation);
    }
    const MonkeyKey key = queue_.front();
    queue_.pop_front();
    return key;
}

MonkeyKey KeyPicker::pick(const Situation& situation) {
    if (dice_.oneIn(60)) {
        return anyKey();
    }
    if (dice_.oneIn(200)) {
        return {Kind::copy, {}, Text(dice_.oneOf(foreignTexts))};
    }
    if (dice_.oneIn(100)) {
        return {Kind::turn};
    }
    switch (situation.place) {
    case Place::menu:
        return inMenu();
    case Place::form:
        return inForm(situation);
    case Place::inputBox:
        return inInputBox(situation);
    case Place::panel:
        return inPanel(situation);
    }
    return anyKey();
}

MonkeyKey KeyPicker::inMenu() {
    const int draw = dice_.below(20);
    if (draw < 13) {
        return press(dice_.oneIn(3) ? dice_.oneOf(arrows) : plainKey(Key::down));
    }
    return press(plainKey(draw < 17 ? Key::enter : Key::escape));
}

MonkeyKey KeyPicker::inForm(const Situation& situation) {
    const int draw = dice_.below(100);
    if (draw < 20) {
        return press(dice_.oneIn(4) ? shiftKey(Key::tab) : plainKey(Key::tab));
    }
    if (draw < 38) {
        return press(plainKey(Key::enter));
    }
    if (draw < 50) {
        return press(plainKey(Key::escape));
    }
    if (draw < 56) {
        return press(plainKey(Key::space));
    }
    if (draw < 66) {
        return accessKey(situation);
    }
    if (situation.takesText && draw < 84) {
        return draw < 72   ? MonkeyKey{Kind::type, {}, Text(dice_.oneOf(numbers))}
               : draw < 76 ? MonkeyKey{Kind::type, {}, Text(dice_.oneOf(names))}
               : draw < 80 ? press(dice_.oneOf(editing))
                           : text();
    }
    return draw < 97 ? press(dice_.oneOf(arrows)) : press(dice_.oneOf(moves));
}

MonkeyKey KeyPicker::inInputBox(const Situation& situation) {
    const int draw = dice_.below(100);
    if (situation.rangeIsFixed || situation.picksPlace) {
        if (draw < 70) {
            return press(dice_.oneOf(situation.picksPlace ? arrows : onRange));
        }
        if (draw < 80) {
            return press(plainKey(Key::enter));
        }
    }
    if (draw < 34) {
        const KeyStroke move = dice_.oneOf(moves);
        return dice_.oneIn(20) ? held(move) : press(move);
    }
    if (draw < 60) {
        return text();
    }
    if (draw < 74) {
        return press(plainKey(Key::enter));
    }
    if (draw < 81) {
        return press(dice_.oneOf(ranges));
    }
    if (draw < 86) {
        return press(dice_.oneOf(editing));
    }
    if (draw < 92 && !situation.shortcuts.empty()) {
        return press(dice_.oneOf(situation.shortcuts));
    }
    if (draw < 96) {
        return accessKey(situation);
    }
    if (draw < 98) {
        return press(plainKey(Key::tab));
    }
    // Esc in an empty box ends the program.
    return press(situation.boxIsEmpty && !dice_.oneIn(4) ? plainKey(Key::shift) : plainKey(Key::escape));
}

MonkeyKey KeyPicker::inPanel(const Situation& situation) {
    const int draw = dice_.below(100);
    if (draw < 35) {
        return press(dice_.oneIn(4) ? shiftKey(Key::tab) : plainKey(Key::tab));
    }
    if (draw < 55) {
        return press(plainKey(Key::enter));
    }
    if (draw < 75) {
        return situation.takesText && dice_.oneIn(2) ? MonkeyKey{Kind::type, {}, Text(dice_.oneOf(numbers))} : text();
    }
    if (draw < 90) {
        return press(dice_.oneIn(3) ? dice_.oneOf(moves) : dice_.oneOf(arrows));
    }
    return draw < 96 ? accessKey(situation) : press(plainKey(Key::space));
}

MonkeyKey KeyPicker::text() {
    switch (dice_.below(5)) {
    case 0:
        return {Kind::commit, {}, randomText(dice_, 5)};
    case 1:
        queue_.push_back({Kind::compose, {}, dice_.oneIn(2) ? randomText(dice_, 3) : Text()});
        queue_.push_back({Kind::commit, {}, randomText(dice_, 3)});
        return {Kind::compose, {}, randomText(dice_, 2)};
    default:
        return {Kind::type, {}, randomText(dice_, dice_.oneIn(10) ? 40 : 3)};
    }
}

MonkeyKey KeyPicker::anyKey() {
    KeyStroke stroke{static_cast<Key>(dice_.below(static_cast<int>(Key::z) + 1))};
    stroke.shift = dice_.oneIn(3);
    stroke.ctrl = dice_.oneIn(3);
    stroke.alt = dice_.oneIn(4);
    return press(stroke);
}

MonkeyKey KeyPicker::held(const KeyStroke& stroke) {
    for (int i = dice_.between(1, 8); i > 0; --i) {
        queue_.push_back({Kind::repeat, stroke});
    }
    queue_.push_back({Kind::up, stroke});
    return {Kind::down, stroke};
}

MonkeyKey KeyPicker::accessKey(const Situation& situation) {
    return situation.accessKeys.empty() ? press(plainKey(Key::enter))
                                        : press(altKey(dice_.oneOf(situation.accessKeys)));
}
