#pragma once
// One thing that the monkey does at the keyboard, and the line of a trace that says it. A trace is the whole history of
// a walk: the table it began with and its keys, so that it can be walked again and cut short.

#include "platform/keys.h"
#include "platform/text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A key, a text, or what happens beside the keyboard.
struct MonkeyKey {
    enum class Kind {
        press,   ///< a key goes down and up
        down,    ///< a key goes down and stays there
        repeat,  ///< it repeats
        up,      ///< and is let go
        type,    ///< each character of `text` by a key
        compose, ///< an input method shows `text`
        commit,  ///< an input method hands `text` over
        copy,    ///< another program puts `text` on the clipboard
        turn,    ///< in the next long loop the form above it gets keys too
    };
    Kind kind = Kind::press;
    KeyStroke stroke{};
    Text text{};
};

/// The line of a trace for a key, such as "press ctrl+Down" or "type abc".
std::string lineOf(const MonkeyKey& key);
/// The key of such a line; nothing if it is none.
std::optional<MonkeyKey> keyOf(std::string_view line);

/// A walk that can be walked again.
struct Trace {
    std::uint64_t table = 0; ///< the number from which the first table was made
    std::vector<MonkeyKey> keys{};
};

/// A trace as a file holds it: "table N", then a line for each key.
std::string textOf(const Trace& trace);
/// The trace of such a text. Lines that are no keys are left out.
Trace traceOf(std::string_view text);
