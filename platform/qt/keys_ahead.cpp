#include "platform/qt/keys_ahead.h"

#include "platform/beeper.h"
#include "platform/qt/turn_giver.h"
#include "platform/qt/x11_keyboard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

// All in milliseconds.
/// How often it is looked whether a window has come up.
constexpr int interval = 2;
/// A desktop that hasn't given the keyboard to a window by then won't do it.
constexpr int patienceWithDesktop = 1000;
/// By then the toolkit has delivered whatever it had already taken in.
constexpr int deliveryTime = 30;

/// True if the keyboard may change hands when `watched` appears or goes.
bool takesKeyboard(const QObject& watched) {
    const auto* widget = qobject_cast<const QWidget*>(&watched);
    return widget != nullptr && (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog) &&
           !widget->testAttribute(Qt::WA_ShowWithoutActivating);
}

RawKey rawKey(const QKeyEvent& event) {
    return {.isPress = event.type() != QEvent::KeyRelease,
            .code = event.nativeScanCode(),
            .modifiers = event.nativeModifiers(),
            .time = static_cast<unsigned>(event.timestamp())};
}

} // namespace

KeysAhead::KeysAhead(const TurnGiver& turns, Beeper& beeper) : turns_(turns), beeper_(beeper) {
    clock_.start();
    timer_.setInterval(interval);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &KeysAhead::handOn);
}

void KeysAhead::watch() {
    QCoreApplication::instance()->installNativeEventFilter(this);
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeysAhead::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
    const std::optional<NativeKey> key = nativeKey(type, message);
    if (!key) {
        return false;
    }
    const auto now = clock_.elapsed();
    if (returning_ && key->isSent && key->key == *returning_) {
        returning_.reset();
        keys_.goesOn(key->key, now);
        return false;
    }
    // The progress form must hear of its stop at once, not when the work is done.
    const QWidget* progress = formOfWork();
    const bool isForWork = progress != nullptr && progress->internalWinId() == key->window;
    return !isForWork && keys_.comes(key->key, now);
}

bool KeysAhead::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
        if (!event->spontaneous() && takesKeyboard(*watched)) {
            awaited_ = static_cast<QWidget*>(watched);
            hold();
        }
        return false;
    case QEvent::Hide:
        if (!event->spontaneous() && takesKeyboard(*watched)) {
            hold();
        }
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (keys_.reaches(rawKey(static_cast<const QKeyEvent&>(*event)))) {
            event->accept();
            return true;
        }
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

void KeysAhead::hold() {
    keys_.hold(clock_.elapsed());
    timer_.start();
}

// One key at a time: it may open a form, and those behind it are for that form then.
void KeysAhead::handOn() {
    const auto now = clock_.elapsed();
    const auto waited = now - keys_.since();
    if (returning_ && now - sent_ < KeysOnHold::patience) {
        return;
    }
    returning_.reset();
    if (!isWindowReady()) {
        handOnToWork();
        if (waited > KeysOnHold::patience) {
            timer_.stop();
            giveUp(keys_.end());
        }
        return;
    }
    if (keys_.mayStillReach() && waited < deliveryTime) {
        return;
    }
    int givenUp = 0;
    if (const std::optional<RawKey> key = keys_.next(now, givenUp)) {
        send(*key);
    } else {
        timer_.stop();
        keys_.end();
    }
    giveUp(givenUp);
}

// Enter typed ahead must not press the button that stops the work, and waits until it is done. Esc can only be meant for
// it: to wait with it would end the program from the edit screen. And the key that started the work must count as let go,
// or the button would take the next Enter for its repeat.
void KeysAhead::handOnToWork() {
    if (formOfWork() == nullptr) {
        return;
    }
    if (const std::optional<RawKey> key = keys_.nextOf(scanCodeOfEscape())) {
        send(*key);
    }
}

void KeysAhead::send(const RawKey& key) {
    returning_ = key;
    sent_ = clock_.elapsed();
    sendKey(key, *QApplication::activeWindow());
}

// While a loop is at work that only gives the turn now and then, the code behind the last form hasn't come to its end.
bool KeysAhead::isWindowReady() const {
    const QWidget* active = QApplication::activeWindow();
    const QWidget* modal = QApplication::activeModalWidget();
    const bool isAwaitedUp = awaited_ == nullptr || !awaited_->isVisible() || awaited_ == active ||
                             clock_.elapsed() - keys_.since() > patienceWithDesktop;
    return turns_.isAtRest() && active != nullptr && active->isVisible() && (modal == nullptr || modal == active) &&
           isAwaitedUp;
}

// The form that has the keyboard while a loop gives the turn.
QWidget* KeysAhead::formOfWork() const {
    QWidget* modal = QApplication::activeModalWidget();
    return !turns_.isAtRest() && modal == QApplication::activeWindow() ? modal : nullptr;
}

void KeysAhead::giveUp(int presses) {
    if (presses > 0) {
        beeper_.beep();
    }
}
