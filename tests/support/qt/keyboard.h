#pragma once
// A keyboard and an input method for desk tests. Events go the way of real ones: the question for accelerators first,
// then the press to whatever has the focus; modifier keys go down before the key that they modify and up after it.

#include "platform/keys.h"
#include "platform/text.h"

#include <QEvent>
#include <QString>

#include <vector>

class QWidget;

/// How a held key repeats: presses alone, or pairs of a release and a press that say they are repeats.
enum class RepeatStyle { presses, pairs };

/// Presses keys. Time for the keys passes by itself; the clock that the program sees stands still.
class Keyboard {
public:
    /// Pushes a key down with its modifiers, and lets it go with them.
    void down(const KeyStroke& stroke);
    void up(const KeyStroke& stroke);
    /// down and up.
    void press(const KeyStroke& stroke);
    /// Holds a key for `repeats` repeats and lets it go.
    void hold(const KeyStroke& stroke, int repeats, RepeatStyle style = RepeatStyle::presses);
    /// Repeats a key that is down already.
    void repeat(const KeyStroke& stroke, RepeatStyle style = RepeatStyle::presses);
    /// Types each character by a key of its own.
    void type(TextView text);
    /// Shift and a digit of the main block, where Shift is let go before the digit.
    void shiftedDigitLetGoLate(int digit);

    /// Delivers the releases for which no window was there: those of keys that closed a form. It happens by itself
    /// before the next key.
    void catchUp();

    /// An input method shows text that is being composed; an empty text gives the composition up. Nothing happens on
    /// controls without an input method.
    void compose(TextView text);
    /// An input method commits text.
    void commit(TextView text);

private:
    struct Sent {
        int code;
        Qt::KeyboardModifiers modifiers;
        QString text;
        quint32 scanCode = 0;
        bool autoRepeat = false;
    };
    static Sent sentFor(const KeyStroke& stroke);
    void send(QEvent::Type type, const Sent& key);
    void deliver(QWidget& widget, QEvent::Type type, const Sent& key);
    void sendModifiers(QEvent::Type type, const KeyStroke& stroke);
    void sendInput(const QString& composed, const QString& committed);

    std::vector<Sent> lateReleases_;
    quint64 time_ = 100000;
};
