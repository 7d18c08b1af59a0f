#pragma once
// A push button of a form: Enter and Space press it at key down, once however long they are held, and it has the key
// events of every control. Nothing is typed into a button, so no input method comes up on it.

#include "platform/qt/form_context.h"

#include <QPushButton>

#include <functional>

class KeyTap;

/// A button whose key events and click run inside the guard.
class KeyButton : public QPushButton {
    Q_OBJECT
public:
    KeyButton(const QString& caption, const FormContext& context, QWidget* parent = nullptr);

    /// The button's key events.
    KeyTap& keys() { return keys_; }
    /// What the button does, by key or by mouse.
    void onClick(std::function<void()> rule);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    FormContext context_;
    KeyTap& keys_;
};
