#include "platform/qt/key_codes.h"

#include <QKeyEvent>

namespace {

struct NamedKey {
    int code;
    Key key;
};

constexpr NamedKey namedKeys[] = {
    {Qt::Key_Return, Key::enter},    {Qt::Key_Enter, Key::enter},   {Qt::Key_Escape, Key::escape},
    {Qt::Key_Tab, Key::tab},         {Qt::Key_Backtab, Key::tab},   {Qt::Key_Backspace, Key::backspace},
    {Qt::Key_Space, Key::space},     {Qt::Key_Left, Key::left},     {Qt::Key_Right, Key::right},
    {Qt::Key_Up, Key::up},           {Qt::Key_Down, Key::down},     {Qt::Key_Home, Key::home},
    {Qt::Key_End, Key::end},         {Qt::Key_PageUp, Key::pageUp}, {Qt::Key_PageDown, Key::pageDown},
    {Qt::Key_Insert, Key::insert},   {Qt::Key_Delete, Key::del},    {Qt::Key_Shift, Key::shift},
    {Qt::Key_Control, Key::control}, {Qt::Key_Alt, Key::alt},
};

Key inRow(Key first, int distance) {
    return static_cast<Key>(static_cast<int>(first) + distance);
}

} // namespace

Key keyOfCode(int code, Qt::KeyboardModifiers modifiers) {
    if (code >= Qt::Key_0 && code <= Qt::Key_9) {
        return inRow(modifiers.testFlag(Qt::KeypadModifier) ? Key::keypad0 : Key::digit0, code - Qt::Key_0);
    }
    if (code >= Qt::Key_A && code <= Qt::Key_Z) {
        return inRow(Key::a, code - Qt::Key_A);
    }
    if (code >= Qt::Key_F1 && code <= Qt::Key_F12) {
        return inRow(Key::f1, code - Qt::Key_F1);
    }
    for (const NamedKey& named : namedKeys) {
        if (named.code == code) {
            return named.key;
        }
    }
    return Key::other;
}

KeyStroke strokeOf(Key key, Qt::KeyboardModifiers modifiers) {
    return {key, key != Key::shift && modifiers.testFlag(Qt::ShiftModifier),
            key != Key::control && modifiers.testFlag(Qt::ControlModifier),
            key != Key::alt && modifiers.testFlag(Qt::AltModifier)};
}

KeyStroke strokeOf(const QKeyEvent& event) {
    KeyStroke stroke = strokeOf(keyOfCode(event.key(), event.modifiers()), event.modifiers());
    stroke.shift = stroke.shift || event.key() == Qt::Key_Backtab;
    return stroke;
}
