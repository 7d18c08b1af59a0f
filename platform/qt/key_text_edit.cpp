#include "platform/qt/key_text_edit.h"

#include "platform/clipboard.h"
#include "platform/platform.h"
#include "platform/qt/clipboard_keys.h"
#include "platform/qt/guard.h"
#include "platform/qt/key_codes.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/qt_text.h"
#include "sheet/zormod.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTextBlock>

#include <algorithm>

namespace {

/// Ours to the toolkit's and back: one character a line end on both sides, so positions are the same.
QString linesToQt(TextView text) {
    return toQt(text).replace(QChar(u'\r'), QChar(u'\n'));
}

Text linesFromQt(QString text) {
    return fromQt(text.replace(QChar(u'\n'), QChar(u'\r')).replace(QChar::ParagraphSeparator, QChar(u'\r')));
}

} // namespace

Text cleanedForLines(TextView text) {
    Text clean = withLinesEndedByCr(text);
    std::ranges::transform(clean, clean.begin(), [](char16_t unit) { return unit == u'\r' ? unit : cleanedUnit(unit); });
    return clean;
}

KeyTextEdit::KeyTextEdit(const FormContext& context, QWidget* parent)
    : QPlainTextEdit(parent), context_(context), keys_(KeyTap::of(*this, context)) {
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    setTabChangesFocus(true);
    setCursorWidth(3); // easier to find for weak eyes than the toolkit's hairline
    connect(this, &QPlainTextEdit::textChanged, this, &KeyTextEdit::tellChange);
}

void KeyTextEdit::switchEditingOff() {
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void KeyTextEdit::setProgramText(TextView text) {
    if (!isReadOnly()) {
        told_ = Text(text);
    }
    setPlainText(linesToQt(text));
}

void KeyTextEdit::select(int start, int length) {
    QTextCursor cursor = textCursor();
    const int end = textLength();
    cursor.setPosition(std::clamp(start, 0, end));
    cursor.setPosition(std::clamp(start + length, 0, end), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    ensureCursorVisible();
}

BoxView KeyTextEdit::view() const {
    const QTextCursor cursor = textCursor();
    return {linesFromQt(toPlainText()), cursor.position(), cursor.selectionStart(), selectionLength()};
}

BoxView KeyTextEdit::caretLine() const {
    const QTextCursor cursor = textCursor();
    const QTextBlock block = cursor.block();
    const int start = block.position();
    const int length = block.length() - 1; // without the block's own end
    const int from = std::clamp(cursor.selectionStart() - start, 0, length);
    const int to = std::clamp(cursor.selectionEnd() - start, 0, length);
    return {fromQt(block.text()), cursor.positionInBlock(), from, to - from};
}

int KeyTextEdit::caretLineNumber() const { return textCursor().blockNumber(); }

int KeyTextEdit::lineCount() const { return blockCount(); }

int KeyTextEdit::caretPosition() const { return textCursor().position(); }

int KeyTextEdit::textLength() const { return document()->characterCount() - 1; }

int KeyTextEdit::selectionLength() const { return textCursor().selectionEnd() - textCursor().selectionStart(); }

void KeyTextEdit::keyPressEvent(QKeyEvent* event) {
    if (composing_) {
        return;
    }
    switch (clipboardKeyOf(*event)) {
    case ClipboardKey::copy:
        copySelection();
        return;
    case ClipboardKey::cut:
        if (!isReadOnly() && copySelection()) {
            textCursor().removeSelectedText();
        }
        return;
    case ClipboardKey::paste:
        paste();
        return;
    case ClipboardKey::none:
        break;
    }
    const KeyStroke stroke = strokeOf(*event);
    const Text typed = fromQt(event->text());
    // The toolkit would type the letter of Alt+letter, and in a text that is only read Space would scroll the picture
    // away from the caret.
    if ((stroke.alt && !typed.empty()) || (isReadOnly() && stroke.key == Key::space)) {
        event->ignore();
        return;
    }
    if (typed.size() == 1 && typed[0] > 0x7F && cleanedUnit(typed[0]) != typed[0] && !isReadOnly()) {
        insertPlainText(QString(QChar(cleanedUnit(typed[0]))));
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

bool KeyTextEdit::copySelection() {
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection()) {
        return false;
    }
    Text selected;
    for (const char16_t unit : linesFromQt(cursor.selectedText())) {
        selected += unit;
        if (unit == u'\r') {
            selected += u'\n'; // other programs expect both
        }
    }
    return context_.zormod.platform.clipboard.write(selected);
}

void KeyTextEdit::paste() {
    const ClipboardText clipboard = context_.zormod.platform.clipboard.read();
    const Text clean = cleanedForLines(clipboard.text);
    if (!isReadOnly() && clipboard.ok && !clean.empty()) {
        insertPlainText(linesToQt(clean));
    }
}

void KeyTextEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QPointer<KeyTextEdit> self(this);
    QString left;
    for (const char16_t unit : cleanedForLines(fromQt(event->commitString()))) {
        if (self && keys_.press(unit) == KeyOutcome::goesOn) {
            left += linesToQt(TextView(&unit, 1));
        }
    }
    if (!self) {
        return;
    }
    composing_ = !event->preeditString().isEmpty();
    QInputMethodEvent cleaned(event->preeditString(), event->attributes());
    cleaned.setCommitString(left, event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&cleaned);
    if (self) {
        tellChange();
    }
}

void KeyTextEdit::tellChange() {
    if (isReadOnly() || composing_) {
        return;
    }
    const QPointer<KeyTextEdit> self(this);
    const Text before = told_;
    const Text now = view().text;
    told_ = now;
    for (const ChangeRule& rule : {voice_, change_}) {
        if (self && rule && before != now) {
            context_.guard.run([&] { rule(before, now); });
        }
    }
}

void KeyTextEdit::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        QPlainTextEdit::mousePressEvent(event);
    }
}

// The middle button pastes what is selected anywhere on the desktop, and that is not the user's clipboard.
void KeyTextEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        QPlainTextEdit::mouseReleaseEvent(event);
    }
}
