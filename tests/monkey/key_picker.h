#pragma once
// What the monkey presses next. It sees no more than a user who knows the program would: which kind of window it is in,
// and which letters the window underlines. Keys that the program's tables name come often, all others now and then.

#include "tests/monkey/monkey_key.h"
#include "tests/monkey/random_table.h"

#include <deque>

/// Where the keyboard is.
struct Situation {
    enum class Place {
        menu,     ///< a menu is open, or the menu bar has the focus
        form,     ///< a modal form, or a small window above the edit screen
        inputBox, ///< the edit screen's input box
        panel,    ///< anything else of the edit screen
    };
    Place place = Place::panel;
    bool boxIsEmpty = true;
    bool takesText = false;             ///< the control with the focus takes text
    bool rangeIsFixed = false;          ///< a range is selected
    bool picksPlace = false;            ///< a range is being drawn, or a place to move to is being looked for
    std::vector<Key> accessKeys{};      ///< the underlined letters
    std::vector<KeyStroke> shortcuts{}; ///< of the menus
};

/// The monkey's choice of keys; the same number gives the same choices in the same situations.
class KeyPicker {
public:
    explicit KeyPicker(std::uint64_t number) : dice_(number) {}
    MonkeyKey next(const Situation& situation);

private:
    MonkeyKey pick(const Situation& situation);
    MonkeyKey inMenu();
    MonkeyKey inForm(const Situation& situation);
    MonkeyKey inInputBox(const Situation& situation);
    MonkeyKey inPanel(const Situation& situation);
    MonkeyKey text();
    MonkeyKey anyKey();
    MonkeyKey held(const KeyStroke& stroke);
    MonkeyKey accessKey(const Situation& situation);

    Dice dice_;
    std::deque<MonkeyKey> queue_; ///< what is decided already
};
