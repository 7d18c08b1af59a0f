#include "support/qt/keyboard.h"

#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <map>

namespace {

struct Code {
    int code;
    char16_t typed; // 0: types nothing
};

const std::map<Key, Code> codes = {
    {Key::other, {Qt::Key_unknown, 0}}, {Key::enter, {Qt::Key_Return, u'\r'}},    {Key::escape, {Qt::Key_Escape, 0x1B}},
    {Key::tab, {Qt::Key_Tab, u'\t'}},   {Key::backspace, {Qt::Key_Backspace, 8}}, {Key::space, {Qt::Key_Space, u' '}},
    {Key::left, {Qt::Key_Left, 0}},     {Key::right, {Qt::Key_Right, 0}},         {Key::up, {Qt::Key_Up, 0}},
    {Key::down, {Qt::Key_Down, 0}},     {Key::home, {Qt::Key_Home, 0}},           {Key::end, {Qt::Key_End, 0}},
    {Key::pageUp, {Qt::Key_PageUp, 0}}, {Key::pageDown, {Qt::Key_PageDown, 0}},   {Key::insert, {Qt::Key_Insert, 0}},
    {Key::del, {Qt::Key_Delete, 0x7F}}, {Key::shift, {Qt::Key_Shift, 0}},         {Key::control, {Qt::Key_Control, 0}},
    {Key::alt, {Qt::Key_Alt, 0}},
};

constexpr char shiftedDigits[] = ")!@#$%^&*(";

bool isIn(Key key, Key first, Key last) {
    return key >= first && key <= last;
}

QWidget* receiver() {
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* window = popup != nullptr ? popup : QApplication::activeWindow();
    QWidget* focused = popup != nullptr ? popup->focusWidget() : QApplication::focusWidget();
    return focused != nullptr ? focused : window;
}

} // namespace

Keyboard::Sent Keyboard::sentFor(const KeyStroke& stroke) {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, stroke.shift);
    modifiers.setFlag(Qt::ControlModifier, stroke.ctrl);
    modifiers.setFlag(Qt::AltModifier, stroke.alt);
    const Key key = stroke.key;
    const auto place = [key](Key first) { return static_cast<int>(key) - static_cast<int>(first); };
    if (isIn(key, Key::a, Key::z)) {
        const int letter = (stroke.shift ? u'A' : u'a') + place(Key::a);
        const int typed = stroke.ctrl ? place(Key::a) + 1 : letter;
        return {Qt::Key_A + place(Key::a), modifiers, QString(QChar(typed))};
    }
    if (isIn(key, Key::digit0, Key::digit9)) {
        const int digit = place(Key::digit0);
        const int code = stroke.shift ? static_cast<int>(shiftedDigits[digit]) : Qt::Key_0 + digit;
        return {code, modifiers, QString(QChar(code))};
    }
    if (isIn(key, Key::keypad0, Key::keypad9)) {
        const int code = Qt::Key_0 + place(Key::keypad0);
        return {code, modifiers | Qt::KeypadModifier, QString(QChar(code))};
    }
    if (isIn(key, Key::f1, Key::f12)) {
        return {Qt::Key_F1 + place(Key::f1), modifiers, QString()};
    }
    const Code code = codes.at(key);
    const int toolkitCode = key == Key::tab && stroke.shift ? static_cast<int>(Qt::Key_Backtab) : code.code;
    return {toolkitCode, modifiers, code.typed == 0 ? QString() : QString(QChar(code.typed))};
}

void Keyboard::send(QEvent::Type type, const Sent& key) {
    catchUp();
    if (QWidget* widget = receiver()) {
        deliver(*widget, type, key);
    } else if (type == QEvent::KeyRelease) {
        lateReleases_.push_back(key);
    } else {
        ADD_FAILURE() << "a key was pressed and no window has the keyboard";
    }
}

void Keyboard::catchUp() {
    while (!lateReleases_.empty() && receiver() != nullptr) {
        const Sent key = lateReleases_.front();
        lateReleases_.erase(lateReleases_.begin());
        deliver(*receiver(), QEvent::KeyRelease, key);
    }
}

void Keyboard::deliver(QWidget& widget, QEvent::Type type, const Sent& key) {
    ++time_;
    const bool asks = type == QEvent::KeyPress && key.scanCode == 0;
    if (asks && qt_sendShortcutOverrideEvent(&widget, static_cast<ulong>(time_), key.code, key.modifiers, key.text,
                                             key.autoRepeat)) {
        return;
    }
    QKeyEvent event(type, key.code, key.modifiers, key.scanCode, 0, 0, key.text, key.autoRepeat);
    event.setTimestamp(time_);
    QCoreApplication::sendEvent(&widget, &event);
}

void Keyboard::sendModifiers(QEvent::Type type, const KeyStroke& stroke) {
    const bool goesDown = type == QEvent::KeyPress;
    Qt::KeyboardModifiers held;
    for (const auto& [used, code, flag] : {std::tuple{stroke.ctrl, Qt::Key_Control, Qt::ControlModifier},
                                           std::tuple{stroke.alt, Qt::Key_Alt, Qt::AltModifier},
                                           std::tuple{stroke.shift, Qt::Key_Shift, Qt::ShiftModifier}}) {
        if (used) {
            held.setFlag(flag, goesDown);
            send(type, {code, held, QString()});
        }
    }
}

void Keyboard::down(const KeyStroke& stroke) {
    sendModifiers(QEvent::KeyPress, stroke);
    send(QEvent::KeyPress, sentFor(stroke));
}

void Keyboard::up(const KeyStroke& stroke) {
    send(QEvent::KeyRelease, sentFor(stroke));
    sendModifiers(QEvent::KeyRelease, stroke);
}

void Keyboard::press(const KeyStroke& stroke) {
    down(stroke);
    up(stroke);
}

void Keyboard::repeat(const KeyStroke& stroke, RepeatStyle style) {
    Sent key = sentFor(stroke);
    key.autoRepeat = style == RepeatStyle::pairs;
    if (style == RepeatStyle::pairs) {
        send(QEvent::KeyRelease, key);
    }
    send(QEvent::KeyPress, key);
}

void Keyboard::hold(const KeyStroke& stroke, int repeats, RepeatStyle style) {
    down(stroke);
    for (int i = 0; i < repeats; ++i) {
        repeat(stroke, style);
    }
    up(stroke);
}

void Keyboard::type(TextView text) {
    for (const char16_t unit : text) {
        const bool named = unit < 0x80;
        const int capital = unit >= u'a' && unit <= u'z' ? unit - 0x20 : unit;
        Sent key{named ? capital : static_cast<int>(Qt::Key_unknown), Qt::NoModifier, QString(QChar(unit))};
        key.modifiers.setFlag(Qt::ShiftModifier, unit >= u'A' && unit <= u'Z');
        send(QEvent::KeyPress, key);
        send(QEvent::KeyRelease, key);
    }
}

void Keyboard::shiftedDigitLetGoLate(int digit) {
    constexpr quint32 firstDigitScanCode = 10;
    Sent key = sentFor({static_cast<Key>(static_cast<int>(Key::digit0) + digit), true});
    key.scanCode = firstDigitScanCode + static_cast<quint32>(digit);
    sendModifiers(QEvent::KeyPress, {Key::other, true});
    send(QEvent::KeyPress, key);
    sendModifiers(QEvent::KeyRelease, {Key::other, true});
    Sent late = sentFor(plainKey(static_cast<Key>(static_cast<int>(Key::digit0) + digit)));
    late.scanCode = key.scanCode;
    send(QEvent::KeyRelease, late);
}

void Keyboard::compose(TextView text) {
    sendInput(toQt(text), QString());
}

void Keyboard::commit(TextView text) {
    sendInput(QString(), toQt(text));
}

void Keyboard::sendInput(const QString& composed, const QString& committed) {
    QWidget* widget = receiver();
    if (widget == nullptr || !widget->testAttribute(Qt::WA_InputMethodEnabled)) {
        return;
    }
    QInputMethodEvent event(composed, {});
    event.setCommitString(committed);
    QCoreApplication::sendEvent(widget, &event);
}
