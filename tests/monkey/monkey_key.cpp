#include "tests/monkey/monkey_key.h"

#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

namespace {

using Kind = MonkeyKey::Kind;

// In the order of Key and of MonkeyKey::Kind.
constexpr std::array<std::string_view, 77> keyNames = {
    "Other", "Enter",  "Esc",      "Tab",  "Backspace", "Space", "Left", "Right", "Up",  "Down", "Home",
    "End",   "PageUp", "PageDown", "Ins",  "Del",       "Shift", "Ctrl", "Alt",   "F1",  "F2",   "F3",
    "F4",    "F5",     "F6",       "F7",   "F8",        "F9",    "F10",  "F11",   "F12", "Num0", "Num1",
    "Num2",  "Num3",   "Num4",     "Num5", "Num6",      "Num7",  "Num8", "Num9",  "0",   "1",    "2",
    "3",     "4",      "5",        "6",    "7",         "8",     "9",    "A",     "B",   "C",    "D",
    "E",     "F",      "G",        "H",    "I",         "J",     "K",    "L",     "M",   "N",    "O",
    "P",     "Q",      "R",        "S",    "T",         "U",     "V",    "W",     "X",   "Y",    "Z"};
constexpr std::array<std::string_view, 9> kindNames = {"press",   "down",   "repeat", "up",  "type",
                                                       "compose", "commit", "copy",   "turn"};

bool hasStroke(Kind kind) {
    return kind == Kind::press || kind == Kind::down || kind == Kind::repeat || kind == Kind::up;
}

std::string strokeText(const KeyStroke& stroke) {
    std::string text;
    text += stroke.ctrl ? "ctrl+" : "";
    text += stroke.alt ? "alt+" : "";
    text += stroke.shift ? "shift+" : "";
    return text += keyNames.at(static_cast<std::size_t>(stroke.key));
}

bool take(std::string_view& text, std::string_view head) {
    const bool starts = text.starts_with(head);
    text.remove_prefix(starts ? head.size() : 0);
    return starts;
}

std::optional<KeyStroke> strokeOf(std::string_view text) {
    KeyStroke stroke;
    stroke.ctrl = take(text, "ctrl+");
    stroke.alt = take(text, "alt+");
    stroke.shift = take(text, "shift+");
    const auto* const name = std::find(keyNames.begin(), keyNames.end(), text);
    if (name == keyNames.end()) {
        return std::nullopt;
    }
    stroke.key = static_cast<Key>(name - keyNames.begin());
    return stroke;
}

// A line is one line: a line end in a text is written as a sign of its own.
constexpr char16_t lineEndSign = u'\u2424';

std::string oneLine(Text text) {
    std::replace(text.begin(), text.end(), u'\n', lineEndSign);
    return toUtf8(text);
}

Text manyLines(std::string_view line) {
    Text text = fromUtf8(line);
    std::replace(text.begin(), text.end(), lineEndSign, u'\n');
    return text;
}

} // namespace

std::string lineOf(const MonkeyKey& key) {
    const std::string name(kindNames.at(static_cast<std::size_t>(key.kind)));
    return name + " " + (hasStroke(key.kind) ? strokeText(key.stroke) : oneLine(key.text));
}

std::optional<MonkeyKey> keyOf(std::string_view line) {
    const std::size_t blank = std::min(line.find(' '), line.size());
    const auto* const name = std::find(kindNames.begin(), kindNames.end(), line.substr(0, blank));
    if (name == kindNames.end() || blank == line.size()) {
        return std::nullopt;
    }
    MonkeyKey key{static_cast<Kind>(name - kindNames.begin())};
    const std::string_view rest = line.substr(blank + 1);
    if (!hasStroke(key.kind)) {
        key.text = manyLines(rest);
        return key;
    }
    const auto stroke = strokeOf(rest);
    key.stroke = stroke.value_or(KeyStroke{});
    return stroke ? std::optional(key) : std::nullopt;
}

std::string textOf(const Trace& trace) {
    std::ostringstream text;
    text << "table " << trace.table << "\n";
    for (const MonkeyKey& key : trace.keys) {
        text << lineOf(key) << "\n";
    }
    return text.str();
}

Trace traceOf(std::string_view text) {
    constexpr std::string_view head = "table ";
    Trace trace;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with(head)) {
            std::from_chars(line.data() + head.size(), line.data() + line.size(), trace.table);
        } else if (auto key = keyOf(line)) {
            trace.keys.push_back(*std::move(key));
        }
    }
    return trace;
}
