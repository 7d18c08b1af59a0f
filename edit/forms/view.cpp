#include "edit/forms/view.h"

#include "edit/forms/flow_layout.h"
#include "platform/qt/guard.h"
#include "platform/qt/key_button.h"
#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

// A modifier alone may be the beginning of a key that speaks.
bool isModifierAlone(const KeyStroke& stroke) {
    return stroke.key == Key::shift || stroke.key == Key::control || stroke.key == Key::alt;
}

bool pressesButton(const KeyStroke& stroke) {
    return stroke == plainKey(Key::enter) || stroke == plainKey(Key::space);
}

// What any form answers: the user is looking round and stays where he is.
bool isSpeakingKey(const KeyStroke& stroke) {
    return stroke == ctrlShiftKey(Key::a) || stroke == ctrlShiftKey(Key::keypad1) || stroke == altKey(Key::n) ||
           stroke == altKey(Key::m) || stroke == ctrlShiftKey(Key::s) || stroke == shiftKey(Key::pageDown);
}

} // namespace

QColor maskColour(MaskKind kind) {
    switch (kind) {
    case MaskKind::wholes:
        return QColor(0xFF, 0x00, 0x00);
    case MaskKind::block:
        return QColor(0xFF, 0xC0, 0xC0);
    default:
        return QColor(0x00, 0xFF, 0x00);
    }
}

View::View(const QString& name, TextView caption, FormVoice voice, const FormContext& context,
           const ViewActions& actions, QWidget* parent)
    : QWidget(parent), context_(context), actions_(actions), spoken_(new SpokenForm(*this, context, std::move(voice))),
      heading_(nullptr), bar_(new FlowLayout), body_(new QVBoxLayout(this)) {
    heading_ = addLabel(QStringLiteral("heading"));
    QFont bold = heading_->font();
    bold.setBold(true);
    heading_->setFont(bold);
    body_->setContentsMargins(4, 0, 4, 4);
    body_->setSpacing(2);
    body_->addLayout(bar_);
    addFocusable(*this, name, caption);
    spoken_->onKeyDown([this](const KeyStroke& stroke) { return keyDown(stroke); });
    setHeading(caption);
}

void View::showEcho(const Text&) {}

void View::showCellInEcho() {}

void View::paintMask(MaskKind, const CellRange&) {}

void View::hideMask() {}

void View::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // The base tells of the font that it gets while it is made, too.
    if (event->type() == QEvent::FontChange && isVisible()) {
        context_.guard.run([this] { followLetters(); });
    }
}

void View::setHeading(TextView caption) {
    heading_->setText(toQt(caption));
    setAccessibleName(toQt(caption));
    setWindowTitle(toQt(caption));
}

void View::addFocusable(QWidget& widget, const QString& name, TextView accessibleName) {
    // A click picks a cell and speaks that; the surface that was clicked has nothing to say besides.
    spoken_->add(widget, name, {.label = Text(accessibleName), .onFocus = [] {}});
    widget.setFocusPolicy(Qt::ClickFocus);
}

QLabel* View::addLabel(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    bar_->addWidget(label);
    return label;
}

void View::addButton(const QString& name, TextView caption, std::function<void()> rule) {
    auto* button = new KeyButton(toQt(caption), context_, this);
    spoken_->add(*button, name);
    button->setFocusPolicy(Qt::ClickFocus);
    button->onClick(std::move(rule));
    bar_->addWidget(button);
}

KeyOutcome View::keyDown(const KeyStroke& stroke) {
    const bool onButton = qobject_cast<QAbstractButton*>(QApplication::focusWidget()) != nullptr;
    if (isModifierAlone(stroke) || (onButton && pressesButton(stroke))) {
        return KeyOutcome::goesOn;
    }
    if (!isSpeakingKey(stroke)) {
        actions_.backToInput();
    }
    return KeyOutcome::taken;
}
