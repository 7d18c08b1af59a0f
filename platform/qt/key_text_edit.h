#pragma once
// A text box of several lines. Editing, caret and selection are the toolkit's own; the box adds the four key events in
// their order, cleans what is pasted, and sends copy, cut and paste through the program's clipboard alone. Read only it
// keeps its caret, and the caret and selection keys go on working: that is how a text is read by ear.
//
// Our side of the box ends its lines in CR, one character each, whatever the file had.

#include "platform/keys.h"
#include "platform/qt/form_context.h"

#include <QPlainTextEdit>

#include <functional>

class KeyTap;

/// What may enter a box of several lines of `text`: CR LF, CR and LF each end a line and become CR, every other unit as
/// cleanedUnit has it.
Text cleanedForLines(TextView text);

/// A box of several lines with key events, all of them inside the guard.
class KeyTextEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    /// Told of a change that the user made, with the text before and after it.
    using ChangeRule = std::function<void(const Text& before, const Text& now)>;

    explicit KeyTextEdit(const FormContext& context, QWidget* parent = nullptr);

    /// Key down, key press and key up of the box.
    KeyTap& keys() { return keys_; }
    /// The change event: typing, pasting, deleting, a commit. Never for setProgramText, and not while composing.
    void onChange(ChangeRule rule) { change_ = std::move(rule); }
    /// The form's voice for changes; speaks before the change rule runs.
    void setChangeVoice(ChangeRule voice) { voice_ = std::move(voice); }

    /// The text can be read and copied, but not changed.
    void switchEditingOff();
    /// The program sets the text, lines ended by CR; the caret goes to the start and nothing is selected.
    void setProgramText(TextView text);
    /// Puts the caret behind `length` selected characters that begin after `start` characters, and scrolls to it.
    void select(int start, int length);
    /// True while an input method shows text that is not yet committed.
    bool composing() const { return composing_; }

    /// The whole text without what is being composed, caret and selection, in characters from 0.
    BoxView view() const;
    /// The caret's line alone, without its line end; caret and selection are counted from its start, the selection as
    /// far as it lies in this line.
    BoxView caretLine() const;
    /// Number of lines before the caret's line, and of all lines.
    int caretLineNumber() const;
    int lineCount() const;
    /// Characters of the whole text before the caret, and of all of it.
    int caretPosition() const;
    int textLength() const;
    /// Characters that are selected.
    int selectionLength() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void tellChange();
    bool copySelection();
    void paste();

    FormContext context_;
    KeyTap& keys_;
    ChangeRule change_;
    ChangeRule voice_;
    Text told_; ///< the text as the change rule last knew it; kept only where the text can be changed
    bool composing_ = false;
};
