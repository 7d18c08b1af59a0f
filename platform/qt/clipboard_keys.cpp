#include "platform/qt/clipboard_keys.h"

#include "platform/qt/key_codes.h"

#include <QKeyEvent>

ClipboardKey clipboardKeyOf(const QKeyEvent& event) {
    auto& key = const_cast<QKeyEvent&>(event); // matches() is not const
    const KeyStroke stroke = strokeOf(event);
    if (key.matches(QKeySequence::Copy) || stroke == ctrlKey(Key::c) || stroke == ctrlKey(Key::insert)) {
        return ClipboardKey::copy;
    }
    if (key.matches(QKeySequence::Cut) || stroke == ctrlKey(Key::x) || stroke == shiftKey(Key::del)) {
        return ClipboardKey::cut;
    }
    if (key.matches(QKeySequence::Paste) || stroke == ctrlKey(Key::v) || stroke == shiftKey(Key::insert)) {
        return ClipboardKey::paste;
    }
    return ClipboardKey::none;
}
