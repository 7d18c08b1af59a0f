#pragma once
// The voice that every form has in common: its opening text, the keys by which any form describes itself and reads the
// sheet, the announcement of each control that gets the focus, the reading keys of buttons and boxes, and the rules
// that keep the user's own clipboard text. It is no widget: a main window, a dialog or a view inside a window holds
// one, gives it data, and writes no such handler of its own.

#include "platform/qt/form_context.h"
#include "platform/qt/key_tap.h"
#include "platform/text.h"

#include <QAnyStringView>
#include <QObject>

#include <functional>
#include <map>

class QWidget;

/// What a form says of itself; asked for each time it is said.
struct FormVoice {
    /// What the form does and how it is worked.
    std::function<Text()> description{};
    /// True: Ctrl+Shift+A says the caption and "。" before the description.
    bool captionFirst = true;
    /// Said once per opening. Not set: what Ctrl+Shift+A says. An empty text: nothing of its own, so the control that
    /// has the focus is announced instead.
    std::function<Text()> opening{};
};

/// What a control says of itself.
struct ControlVoice {
    /// The label of the announcement (voice/announcement.h). Empty: the bare word of the control's kind.
    Text label{};
    /// What a screen reader is told. Empty: the caption, or the label without the word of its kind.
    Text accessibleName{};
    /// Said instead of the announcement, on focus and with the reading keys.
    std::function<Text()> reading{};
    /// The control's own rules on getting and losing the focus by a move inside the program; the focus rule takes the
    /// place of the announcement.
    std::function<void()> onFocus{};
    std::function<void()> onLeave{};
    /// The control says its own key ups, or its own changes of text.
    bool ownKeyUps = false;
    bool ownTyping = false;
    /// Alt+N and Alt+M are left to the control's key up.
    bool ownSheetKeys = false;
};

/// The common voice of one form; a child of the form's widget.
class SpokenForm : public QObject {
    Q_OBJECT
public:
    SpokenForm(QWidget& form, const FormContext& context, FormVoice voice);

    /// The nearest form at or above `widget`; null if it stands in none.
    static SpokenForm* nearest(const QWidget* widget);

    /// Takes a control of the form in: names it, announces it, and hands it the form's keys. Its own key rules are set
    /// on KeyTap::of(control), or keys() of our controls.
    void add(QWidget& control, QAnyStringView name, ControlVoice voice = {});
    /// The voice of a control taken in before, to be changed.
    ControlVoice& voiceOf(QWidget& control);
    /// The form's own keys, wherever in the form the focus is; they see a key before the control does.
    void onKeyDown(KeyTap::KeyRule rule) { ownKeys_ = std::move(rule); }

    /// Gives `control` the focus and runs its focus rule, whether or not it had the focus already.
    void giveFocus(QWidget& control);
    /// The caption of the form as it is heard.
    Text caption() const;
    /// What Ctrl+Shift+A says.
    Text description() const;
    /// Says the opening text after the inhibit time; windows do it by themselves when they open, a view inside a window
    /// when its owner asks for it. Nothing with speech off.
    void sayOpening();
    /// The user has opened the form once more while it was open: it says its opening text as soon as it has the keyboard.
    void openAgain();
    /// Announces a control as its focus does.
    void announce(QWidget& control);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Control {
        ControlVoice voice;
        int lastSelLength = 0;
    };
    KeyOutcome keyDown(const Control& control, const KeyStroke& stroke);
    void keyUp(QWidget& widget, Control& control, const KeyStroke& stroke);
    void focusMoved(QWidget* from, QWidget* to);
    void runFocusRule(QWidget& widget);
    void openSoon();

    QWidget& form_;
    FormContext context_;
    FormVoice voice_;
    std::map<const QObject*, Control> controls_;
    KeyTap::KeyRule ownKeys_;
    bool hasTextBox_ = false;
    bool openingDue_ = false;
    bool givingFocus_ = false;
    Qt::FocusReason inReason_ = Qt::NoFocusReason;
    Qt::FocusReason outReason_ = Qt::NoFocusReason;
};
