#include "voice/forms/spoken_control.h"

#include "platform/qt/key_text_edit.h"
#include "platform/qt/qt_text.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>

SpokenControl spokenControl(const QWidget& control) {
    if (const auto* line = qobject_cast<const QLineEdit*>(&control)) {
        return {fromQt(line->text()), {}, 0};
    }
    if (const auto* rich = qobject_cast<const QTextEdit*>(&control)) {
        return {fromQt(rich->toPlainText()), {}, 0};
    }
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&control)) {
        return {fromQt(plain->toPlainText()), {}, 0};
    }
    if (const auto* box = qobject_cast<const QCheckBox*>(&control)) {
        return {{}, spokenCaption(box->text()), static_cast<int>(box->isChecked())};
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return {{}, spokenCaption(button->text()), static_cast<int>(button->isChecked())};
    }
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return {fromQt(label->text()), fromQt(label->text()), 0};
    }
    return {};
}

Text spokenCaption(const QString& caption) {
    Text heard;
    const Text marked = fromQt(caption);
    for (std::size_t i = 0; i < marked.size(); ++i) {
        if (marked[i] == u'&' && i + 1 < marked.size()) {
            ++i;
        }
        heard += marked[i];
    }
    return heard;
}

TextView kindWord(const QWidget& control) {
    if (takesText(control)) {
        return textBoxWord;
    }
    if (qobject_cast<const QCheckBox*>(&control) != nullptr) {
        return checkBoxWord;
    }
    return qobject_cast<const QPushButton*>(&control) != nullptr ? buttonWord : TextView();
}

LinePlace linePlace(const KeyTextEdit& box) {
    return {.line = box.caretLine(),
            .number = box.caretLineNumber(),
            .count = box.lineCount(),
            .caret = box.caretPosition(),
            .characters = box.textLength()};
}

bool takesText(const QWidget& control) {
    return qobject_cast<const QLineEdit*>(&control) != nullptr || qobject_cast<const QTextEdit*>(&control) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&control) != nullptr;
}
