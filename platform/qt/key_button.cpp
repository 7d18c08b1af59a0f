#include "platform/qt/key_button.h"

#include "platform/qt/guard.h"
#include "platform/qt/held_keys.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/key_tap.h"

#include <QKeyEvent>

KeyButton::KeyButton(const QString& caption, const FormContext& context, QWidget* parent)
    : QPushButton(caption, parent), context_(context), keys_(KeyTap::of(*this, context)) {
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void KeyButton::onClick(std::function<void()> rule) {
    connect(this, &QPushButton::clicked, this, context_.guard.wrap(std::move(rule)));
}

// The toolkit would let the button look pressed for a while before it acts, and other keys would come in between.
bool KeyButton::event(QEvent* event) {
    if (event->type() != QEvent::Shortcut || static_cast<const QShortcutEvent*>(event)->isAmbiguous()) {
        return QPushButton::event(event);
    }
    setFocus(Qt::ShortcutFocusReason);
    click();
    return true;
}

void KeyButton::keyPressEvent(QKeyEvent* event) {
    const KeyStroke stroke = strokeOf(*event);
    const bool presses = stroke == plainKey(Key::enter) || stroke == plainKey(Key::space);
    if (!presses) {
        QPushButton::keyPressEvent(event);
    } else if (!context_.heldKeys.isRepeat()) {
        click();
    }
}

// The toolkit would press the button a second time when Space is let go.
void KeyButton::keyReleaseEvent(QKeyEvent* event) {
    event->accept();
}
