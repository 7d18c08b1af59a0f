#include "voice/forms/SpokenForm.h"

#include "platform/qt/guard.h"
#include "platform/qt/key_line_edit.h"
#include "platform/qt/key_text_edit.h"
#include "platform/qt/qt_text.h"
#include "voice/caret_reading.h"
#include "voice/cell_reading.h"
#include "voice/forms/spoken_control.h"
#include "voice/line_reading.h"
#include "voice/speech_channel.h"
#include "voice/typing_reading.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>

namespace {

// Moves of the focus that the user did not make inside the program.
bool comesFromOutside(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

Text nameFor(const QWidget& control, const ControlVoice& voice) {
    if (!voice.accessibleName.empty()) {
        return voice.accessibleName;
    }
    const Text caption = spokenControl(control).caption;
    Text name = caption.empty() ? voice.label : caption;
    const auto word = name.find(kindWord(control));
    if (caption.empty() && word != Text::npos && name.size() > kindWord(control).size()) {
        name.erase(word, kindWord(control).size());
    }
    return name;
}

} // namespace

SpokenForm::SpokenForm(QWidget& form, const FormContext& context, FormVoice voice)
    : QObject(&form), form_(form), context_(context), voice_(std::move(voice)) {
    form.installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &SpokenForm::focusMoved);
}

SpokenForm* SpokenForm::nearest(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (auto* form = widget->findChild<SpokenForm*>(QString(), Qt::FindDirectChildrenOnly)) {
            return form;
        }
    }
    return nullptr;
}

void SpokenForm::add(QWidget& control, QAnyStringView name, ControlVoice voice) {
    control.setObjectName(name);
    if (voice.label.empty()) {
        voice.label = Text(kindWord(control));
    }
    control.setAccessibleName(toQt(nameFor(control, voice)));
    hasTextBox_ = hasTextBox_ || takesText(control);
    Control& entry = controls_[&control];
    entry.voice = std::move(voice);
    connect(&control, &QObject::destroyed, this, [this](const QObject* gone) { controls_.erase(gone); });
    control.installEventFilter(this);
    KeyTap::of(control, context_)
        .setFormRules([this, &entry](const KeyStroke& stroke) { return keyDown(entry, stroke); },
                      [this, &control, &entry](const KeyStroke& stroke) { keyUp(control, entry, stroke); });
    const auto changeVoice = [this, &entry](const Text& before, const Text& now) {
        if (!entry.voice.ownTyping) {
            sayTextChange(context_.zormod, before, now);
        }
    };
    if (auto* box = qobject_cast<KeyLineEdit*>(&control)) {
        box->setChangeVoice(changeVoice);
    } else if (auto* lines = qobject_cast<KeyTextEdit*>(&control)) {
        lines->setChangeVoice(changeVoice);
    }
}

ControlVoice& SpokenForm::voiceOf(QWidget& control) {
    return controls_.at(&control).voice;
}

Text SpokenForm::caption() const {
    return spokenCaption(form_.windowTitle());
}

Text SpokenForm::description() const {
    const Text text = voice_.description ? voice_.description() : Text();
    return voice_.captionFirst ? caption() + Text(periodPause) + text : text;
}

void SpokenForm::sayOpening() {
    ZORMOD& zormod = context_.zormod;
    if (zormod.speech.speechMode == 0) {
        return;
    }
    const Text text = voice_.opening ? voice_.opening() : description();
    QWidget* focused = form_.focusWidget();
    if (!text.empty()) {
        waitSeconds(zormod, zormod.speech.inhibitSeconds);
        sayThrottled(zormod, text);
    } else if (focused != nullptr && controls_.contains(focused)) {
        runFocusRule(*focused);
    }
}

void SpokenForm::announce(QWidget& control) {
    const ControlVoice& voice = voiceOf(control);
    if (voice.reading) {
        sayThrottled(context_.zormod, voice.reading());
    } else {
        talkS(context_.zormod, spokenControl(control), voice.label);
    }
}

KeyOutcome SpokenForm::keyDown(const Control& control, const KeyStroke& stroke) {
    // The code of the letter is that of a key of the keypad as well, and both have always described the form.
    if (stroke == ctrlShiftKey(Key::a) || stroke == ctrlShiftKey(Key::keypad1)) {
        sayThrottled(context_.zormod, description());
    } else if (stroke == altKey(Key::n) && !control.voice.ownSheetKeys) {
        readCellKey(context_.zormod);
    } else if (stroke == altKey(Key::m) && !control.voice.ownSheetKeys) {
        readRowKey(context_.zormod);
    } else if (stroke == shiftKey(Key::insert) && hasTextBox_) {
        offerUserClipboard(context_.zormod);
    }
    return ownKeys_ ? KeyTap::KeyRule(ownKeys_)(stroke) : KeyOutcome::goesOn;
}

void SpokenForm::keyUp(QWidget& widget, Control& control, const KeyStroke& stroke) {
    if (stroke == ctrlKey(Key::insert) && hasTextBox_) {
        rememberCopied(context_.zormod);
    }
    const auto* box = qobject_cast<const KeyLineEdit*>(&widget);
    const auto* lines = qobject_cast<const KeyTextEdit*>(&widget);
    if (control.voice.ownKeyUps || (box != nullptr && box->composing()) || (lines != nullptr && lines->composing())) {
        return;
    }
    if (lines != nullptr) {
        readLineKeys(context_.zormod, stroke, linePlace(*lines), lines->selectionLength(),
                     [lines] { return lines->view(); }, control.lastSelLength);
    }
    if (box != nullptr) {
        readBoxKeys(context_.zormod, stroke, box->view(), control.voice.label, control.lastSelLength);
    } else if (stroke == shiftKey(Key::pageDown) || stroke == ctrlShiftKey(Key::s)) {
        announce(widget);
    }
}

void SpokenForm::giveFocus(QWidget& control) {
    givingFocus_ = true;
    control.setFocus(Qt::OtherFocusReason);
    givingFocus_ = false;
    context_.guard.run([&] { runFocusRule(control); });
}

void SpokenForm::runFocusRule(QWidget& widget) {
    if (const auto rule = voiceOf(widget).onFocus) {
        rule();
    } else {
        announce(widget);
    }
}

void SpokenForm::focusMoved(QWidget* from, QWidget* to) {
    const QPointer<SpokenForm> self(this);
    if (controls_.contains(from) && !comesFromOutside(outReason_)) {
        if (const auto rule = voiceOf(*from).onLeave) {
            context_.guard.run(rule);
        }
    }
    // A leave rule may have sent the focus elsewhere, or closed the form.
    if (self && controls_.contains(to) && to->hasFocus() && !comesFromOutside(inReason_) && !givingFocus_) {
        context_.guard.run([&] { runFocusRule(*to); });
    }
}

void SpokenForm::openAgain() {
    openingDue_ = true;
    if (form_.isActiveWindow()) {
        openSoon();
    }
}

void SpokenForm::openSoon() {
    openingDue_ = false;
    const auto opening = context_.guard.wrap([this] {
        if (form_.isVisible()) { // it may have been closed by keys typed ahead
            sayOpening();
        }
    });
    QMetaObject::invokeMethod(this, opening, Qt::QueuedConnection);
}

bool SpokenForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        inReason_ = static_cast<QFocusEvent*>(event)->reason();
    } else if (event->type() == QEvent::FocusOut) {
        outReason_ = static_cast<QFocusEvent*>(event)->reason();
    } else if (watched == &form_ && form_.isWindow()) {
        openingDue_ =
            (openingDue_ || (event->type() == QEvent::Show && !event->spontaneous())) && event->type() != QEvent::Hide;
        if (openingDue_ && form_.isActiveWindow()) {
            openSoon();
        }
    }
    return QObject::eventFilter(watched, event);
}
