#pragma once
// The key events of one control: key down, key press and key up, in this order, whatever widget the control is made
// of. Keys are tapped before the widget sees them, so a handler can take a key away from it. The change event of a
// text box comes between key press and key up and belongs to key_line_edit. Handlers run inside the guard; a handler
// that fails has used the key up.

#include "platform/keys.h"
#include "platform/qt/form_context.h"

#include <QObject>

#include <functional>

class QKeyEvent;
class QWidget;

/// The key events of a widget; owned by it.
class KeyTap : public QObject {
    Q_OBJECT
public:
    using KeyRule = std::function<KeyOutcome(const KeyStroke&)>;
    using PressRule = std::function<KeyOutcome(char16_t)>;
    using UpRule = std::function<void(const KeyStroke&)>;

    /// The tap of `widget`, made at the first call.
    static KeyTap& of(QWidget& widget, const FormContext& context);

    /// Key down: a first press and each repeat. Taken: the widget doesn't get the key and no key press follows.
    void onKeyDown(KeyRule rule) { down_ = std::move(rule); }
    /// Key press: each UTF-16 unit typed, control characters (Enter 0Dh, Esc 1Bh, Backspace 08h) included; keys with
    /// Alt type nothing. Taken: the unit doesn't reach the widget.
    void onKeyPress(PressRule rule) { press_ = std::move(rule); }
    /// Key up: once for each key that is let go while this control has the focus, also if another saw its key down.
    void onKeyUp(UpRule rule) { up_ = std::move(rule); }
    /// The rules of the form that the control stands in; they see each key before the control's own.
    void setFormRules(KeyRule down, UpRule up);

    /// Hands `unit` to the key press rule; for text that comes from an input method.
    KeyOutcome press(char16_t unit);
    /// True while a key press is being handed on: what happens meanwhile has a key down of its own.
    bool isInKeyDown() const { return depth_ > 0; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    KeyTap(QWidget& widget, const FormContext& context);
    bool keyDown(const QKeyEvent& event);
    void keyUp(const QKeyEvent& event);
    KeyOutcome ask(KeyRule rule, const KeyStroke& stroke);
    void tell(UpRule rule, const KeyStroke& stroke);

    QWidget& widget_;
    FormContext context_;
    KeyRule down_;
    PressRule press_;
    UpRule up_;
    KeyRule formDown_;
    UpRule formUp_;
    int depth_ = 0;
};
