#include "platform/qt/held_keys.h"

#include "platform/qt/key_codes.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <limits>

namespace {

// A key whose release went to another program would count as held for ever. No keyboard pauses longer than this
// between two repeats, so a press after a longer rest is a fresh one.
constexpr quint64 longestRepeatPause = 1500;

// The scan code names the physical key whatever Shift makes of it; events without one are told apart by their code.
quint64 identity(const QKeyEvent& event) {
    return event.nativeScanCode() != 0 ? event.nativeScanCode()
                                       : (quint64{1} << 32) + static_cast<quint64>(event.key());
}

} // namespace

HeldKeys::HeldKeys(IsUp isUp) : isUp_(std::move(isUp)) {
    QCoreApplication::instance()->installEventFilter(this);
}

void HeldKeys::muteHeld() {
    for (auto& [id, held] : held_) {
        held.mute = true;
    }
}

KeyStroke HeldKeys::releaseStroke(const QKeyEvent& release) const {
    return isModifierKey(lastReleased_.key) ? strokeOf(lastReleased_.key, release.modifiers()) : lastReleased_;
}

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        return pressed(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        return released(static_cast<QKeyEvent&>(*event));
    case QEvent::WindowActivate:
        forgetLetGo();
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

// Between two windows nobody is told of a release: neither the one that has gone nor the one that isn't active yet.
void HeldKeys::forgetLetGo() {
    if (isUp_) {
        std::erase_if(held_, [this](const auto& entry) {
            const quint64 id = entry.first;
            return id <= std::numeric_limits<quint32>::max() && isUp_(static_cast<quint32>(id));
        });
    }
}

// A press whose handler opened a form goes on to the widgets above its own when that form has been closed, after newer
// keys. It must not count as held once more. Events of some input methods carry no time.
bool HeldKeys::isStale(const QKeyEvent& event) {
    const quint64 now = event.timestamp();
    const bool stale = now != 0 && now < latest_;
    latest_ = stale || now == 0 ? latest_ : now;
    return stale;
}

// One press passes here several times: as the question for shortcuts, at its window, at its widget and at the widgets
// above. All of them carry the same time.
bool HeldKeys::pressed(QKeyEvent& event) {
    if (isStale(event)) {
        return false;
    }
    const quint64 now = event.timestamp();
    const auto [place, fresh] = held_.try_emplace(identity(event), Held{strokeOf(event), now, false});
    Held& held = place->second;
    if (fresh) {
        repeat_ = false;
    } else if (held.lastPress != now) {
        repeat_ = event.isAutoRepeat() || now - held.lastPress < longestRepeatPause;
        held = {repeat_ ? held.stroke : strokeOf(event), now, repeat_ && held.mute};
    }
    if (held.mute) {
        event.accept();
    }
    return held.mute;
}

bool HeldKeys::released(const QKeyEvent& event) {
    if (event.isAutoRepeat()) {
        return true;
    }
    if (isStale(event)) {
        return false;
    }
    const auto place = held_.find(identity(event));
    if (place != held_.end()) {
        lastReleased_ = place->second.stroke;
    } else if (lastRelease_ != event.timestamp()) {
        lastReleased_ = strokeOf(event);
    }
    lastRelease_ = event.timestamp();
    const bool mute = place != held_.end() && place->second.mute;
    if (place != held_.end()) {
        held_.erase(place);
    }
    return mute;
}
