#include "platform/qt/key_tap.h"

#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/shortcut_rule.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

KeyTap::KeyTap(QWidget& widget, const FormContext& context) : QObject(&widget), widget_(widget), context_(context) {
    widget.installEventFilter(this);
}

KeyTap& KeyTap::of(QWidget& widget, const FormContext& context) {
    if (auto* tap = widget.findChild<KeyTap*>(QString(), Qt::FindDirectChildrenOnly)) {
        return *tap;
    }
    return *new KeyTap(widget, context);
}

void KeyTap::setFormRules(KeyRule down, UpRule up) {
    formDown_ = std::move(down);
    formUp_ = std::move(up);
}

bool KeyTap::eventFilter(QObject* watched, QEvent* event) {
    // A key that its control leaves alone wanders up to the widgets above; their taps have no part in it.
    if (watched != &widget_ || (QApplication::focusWidget() != nullptr && !widget_.hasFocus())) {
        return QObject::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        ShortcutRule::answer(static_cast<QKeyEvent&>(*event));
        return true;
    case QEvent::KeyPress:
        return keyDown(static_cast<const QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        keyUp(static_cast<const QKeyEvent&>(*event));
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool KeyTap::keyDown(const QKeyEvent& event) {
    if (context_.guard.isEndPending()) {
        return true;
    }
    const QPointer<KeyTap> self(this);
    const KeyStroke stroke = strokeOf(event);
    ++depth_;
    KeyOutcome outcome = ask(formDown_, stroke);
    if (self && outcome == KeyOutcome::goesOn) {
        outcome = ask(down_, stroke);
    }
    // Del carries a character in some toolkits, but it types none.
    const QString typed = stroke.alt || stroke.key == Key::del ? QString() : event.text();
    for (const QChar unit : typed) {
        if (self && outcome == KeyOutcome::goesOn) {
            outcome = press(unit.unicode());
        }
    }
    if (!self) {
        return true;
    }
    --depth_;
    return outcome == KeyOutcome::taken;
}

void KeyTap::keyUp(const QKeyEvent& event) {
    const QPointer<KeyTap> self(this);
    const KeyStroke stroke = context_.heldKeys.releaseStroke(event);
    tell(formUp_, stroke);
    if (self) {
        tell(up_, stroke);
    }
}

KeyOutcome KeyTap::press(char16_t unit) {
    KeyOutcome outcome = KeyOutcome::goesOn;
    const PressRule rule = press_;
    const bool ran = !rule || context_.guard.run([&] { outcome = rule(unit); });
    return ran ? outcome : KeyOutcome::taken;
}

// The rules are copied before they run: a handler may close its form, and the rule would go with it.
KeyOutcome KeyTap::ask(KeyRule rule, const KeyStroke& stroke) {
    KeyOutcome outcome = KeyOutcome::goesOn;
    const bool ran = !rule || context_.guard.run([&] { outcome = rule(stroke); });
    return ran ? outcome : KeyOutcome::taken;
}

void KeyTap::tell(UpRule rule, const KeyStroke& stroke) {
    if (rule) {
        context_.guard.run([&] { rule(stroke); });
    }
}
