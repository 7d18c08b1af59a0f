#pragma once
// A one-line text box of a form. Editing, caret and selection are the toolkit's own; the box adds the four key events
// in their order, keeps composing text of an input method to itself until it is committed, cleans what is pasted, and
// sends copy, cut and paste through the program's clipboard alone, where speech and the user's own text are kept apart.

#include "platform/clipboard.h"
#include "platform/keys.h"
#include "platform/qt/form_context.h"

#include <QLineEdit>

#include <functional>
#include <optional>

class KeyTap;

/// What may enter a box for a typed or pasted `unit`: a blank for a control character, "?" for one by which a single
/// undecodable byte is carried.
char16_t cleanedUnit(char16_t unit);

/// What may enter a one-line box of `text`: the part before its first line end, with a blank for each other control
/// character and "?" for each character by which a single undecodable byte is carried.
Text cleanedForOneLine(TextView text);

/// A text box with key events, all of them inside the guard.
class KeyLineEdit : public QLineEdit {
    Q_OBJECT
public:
    /// Told of a change that the user made, with the text before and after it.
    using ChangeRule = std::function<void(const Text& before, const Text& now)>;

    explicit KeyLineEdit(const FormContext& context, QWidget* parent = nullptr);

    /// Key down, key press and key up of the box.
    KeyTap& keys() { return keys_; }
    /// The change event: typing, pasting, deleting, a commit. Comes between key press and key up, never for
    /// setProgramText. Text that is being composed is told when it is committed.
    void onChange(ChangeRule rule) { change_ = std::move(rule); }
    /// The form's voice for changes; speaks before the change rule runs.
    void setChangeVoice(ChangeRule voice) { voice_ = std::move(voice); }
    /// Runs before a composition that starts, or a commit, for which there was no key down.
    void onOtherKey(std::function<void()> rule) { otherKey_ = std::move(rule); }

    /// The program sets the text; the caret goes to the end. While the user composes, it waits for the end of it, and
    /// what is committed then follows the new text.
    void setProgramText(TextView text);
    /// True while an input method shows text that is not yet committed.
    bool composing() const { return composing_; }
    /// Text without what is being composed, caret and selection, in characters from 0.
    BoxView view() const;
    /// No input method in this box: it takes keys, not text.
    void switchInputMethodOff();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void tellChange();
    bool tellOtherKey();
    QString pressed(const QString& committed);
    bool runClipboardKey(const QKeyEvent& event);
    bool copySelection();
    void paste();

    FormContext context_;
    KeyTap& keys_;
    ChangeRule change_;
    ChangeRule voice_;
    std::function<void()> otherKey_;
    Text told_; ///< the text as the change rule last knew it
    std::optional<Text> waiting_;
    bool composing_ = false;
};
