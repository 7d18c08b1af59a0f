#include "platform/qt/key_line_edit.h"

#include "platform/platform.h"
#include "platform/qt/clipboard_keys.h"
#include "platform/qt/guard.h"
#include "platform/qt/key_tap.h"
#include "platform/qt/qt_text.h"
#include "sheet/zormod.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>

#include <algorithm>

char16_t cleanedUnit(char16_t unit) {
    if (unit < 0x20 || unit == 0x7F) {
        return u' ';
    }
    return unit >= 0xF700 && unit <= 0xF7FF ? u'?' : unit;
}

Text cleanedForOneLine(TextView text) {
    Text clean(text.substr(0, text.find_first_of(u"\r\n")));
    std::ranges::transform(clean, clean.begin(), cleanedUnit);
    return clean;
}

KeyLineEdit::KeyLineEdit(const FormContext& context, QWidget* parent)
    : QLineEdit(parent), context_(context), keys_(KeyTap::of(*this, context)) {
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (!composing_) {
            tellChange();
        }
    });
}

void KeyLineEdit::setProgramText(TextView text) {
    if (composing_) {
        if (waiting_ || text != told_) {
            waiting_ = Text(text);
        }
        return;
    }
    waiting_.reset();
    told_ = Text(text);
    setText(toQt(text));
}

BoxView KeyLineEdit::view() const {
    BoxView box;
    box.text = fromQt(text());
    box.caret = cursorPosition();
    box.selectionStart = hasSelectedText() ? selectionStart() : box.caret;
    box.selectionLength = selectionLength();
    return box;
}

void KeyLineEdit::switchInputMethodOff() {
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void KeyLineEdit::keyPressEvent(QKeyEvent* event) {
    // A key that an input method lets through while it composes would move the caret through text that isn't there.
    if (composing_ || runClipboardKey(*event)) {
        return;
    }
    // The toolkit would type the letter of Alt+letter.
    if (event->modifiers().testFlag(Qt::AltModifier) && !event->text().isEmpty()) {
        event->ignore();
        return;
    }
    const Text typed = fromQt(event->text());
    const Text clean = cleanedForOneLine(typed);
    if (typed.size() == 1 && typed[0] > 0x7F && clean != typed && !isReadOnly()) {
        insert(toQt(clean));
        return;
    }
    QLineEdit::keyPressEvent(event);
}

// The toolkit's own keys for copying and deleting would use the system's clipboard behind ours.
bool KeyLineEdit::runClipboardKey(const QKeyEvent& event) {
    auto& key = const_cast<QKeyEvent&>(event); // matches() is not const
    const ClipboardKey asked = clipboardKeyOf(event);
    if (asked == ClipboardKey::copy) {
        copySelection();
    } else if (asked == ClipboardKey::cut) {
        if (!isReadOnly() && copySelection()) {
            insert(QString());
        }
    } else if (asked == ClipboardKey::paste) {
        paste();
    } else if (key.matches(QKeySequence::DeleteEndOfLine) || key.matches(QKeySequence::DeleteCompleteLine)) {
        const int from = key.matches(QKeySequence::DeleteEndOfLine) ? cursorPosition() : 0;
        if (!isReadOnly()) {
            setSelection(from, static_cast<int>(text().size()) - from);
            insert(QString());
        }
    } else {
        return false;
    }
    return true;
}

bool KeyLineEdit::copySelection() {
    return hasSelectedText() && context_.zormod.platform.clipboard.write(fromQt(selectedText()));
}

void KeyLineEdit::paste() {
    const ClipboardText clipboard = context_.zormod.platform.clipboard.read();
    const Text clean = cleanedForOneLine(clipboard.text);
    if (!isReadOnly() && clipboard.ok && !clean.empty()) {
        insert(toQt(clean));
    }
}

void KeyLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QPointer<KeyLineEdit> self(this);
    const bool starts = !composing_ && !event->preeditString().isEmpty();
    const bool commits = !event->commitString().isEmpty();
    if (!composing_ && (starts || commits) && !tellOtherKey()) {
        return;
    }
    const QString committed = pressed(event->commitString());
    if (!self) {
        return;
    }
    if (waiting_ && (commits || event->preeditString().isEmpty())) {
        QInputMethodEvent giveUp;
        QLineEdit::inputMethodEvent(&giveUp);
        composing_ = false;
        setProgramText(Text(*waiting_));
    }
    composing_ = !event->preeditString().isEmpty();
    QInputMethodEvent cleaned(event->preeditString(), event->attributes());
    cleaned.setCommitString(committed, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&cleaned);
    if (self && (commits || !composing_)) {
        tellChange();
    }
}

/// True unless the handler failed or closed the box.
bool KeyLineEdit::tellOtherKey() {
    const QPointer<KeyLineEdit> self(this);
    if (keys_.isInKeyDown() || !otherKey_) {
        return true;
    }
    return context_.guard.run(std::function<void()>(otherKey_)) && self;
}

/// What of a commit is left when it has been cleaned and its key presses have been told.
QString KeyLineEdit::pressed(const QString& committed) {
    const QPointer<KeyLineEdit> self(this);
    Text left;
    for (const char16_t unit : cleanedForOneLine(fromQt(committed))) {
        if (self && keys_.press(unit) == KeyOutcome::goesOn) {
            left += unit;
        }
    }
    return toQt(left);
}

void KeyLineEdit::tellChange() {
    const QPointer<KeyLineEdit> self(this);
    const Text before = told_;
    const Text now = fromQt(text());
    told_ = now;
    for (const ChangeRule& rule : {voice_, change_}) {
        if (self && rule && before != now) {
            context_.guard.run([&] { rule(before, now); });
        }
    }
}

// Coming in by Tab would select everything, and the next key would wipe it out unheard.
void KeyLineEdit::focusInEvent(QFocusEvent* event) {
    const BoxView before = view();
    QLineEdit::focusInEvent(event);
    if (before.selectionLength > 0) {
        const bool caretAtStart = before.caret == before.selectionStart;
        setSelection(caretAtStart ? before.selectionStart + before.selectionLength : before.selectionStart,
                     caretAtStart ? -before.selectionLength : before.selectionLength);
    } else {
        setCursorPosition(before.caret);
        deselect();
    }
}

void KeyLineEdit::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        QLineEdit::mousePressEvent(event);
    }
}

// The middle button pastes what is selected anywhere on the desktop, and that is not the user's clipboard.
void KeyLineEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        QLineEdit::mouseReleaseEvent(event);
    }
}
