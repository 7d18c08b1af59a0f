#pragma once
// The keys that are held down, for the whole program. It pairs each release with its press, tells a repeat from a
// fresh press, and makes a key that opened or closed a modal form mute until it is let go: such a key must not answer
// the question that it has just raised, nor speak in the form it returns to. There is one, made beside the
// application; it watches every key event on its way and knows no form.

#include "platform/keys.h"

#include <QObject>

#include <functional>
#include <map>

class QKeyEvent;

/// The held keys, kept up to date by an event filter on the application.
class HeldKeys : public QObject {
public:
    /// Tells of a physical key, by its scan code, whether it is up at this moment; false where nobody can know.
    using IsUp = std::function<bool(quint32 scanCode)>;
    explicit HeldKeys(IsUp isUp = {});

    /// Makes every key that is held now mute: no repeat and no key up of it reaches anybody until it is let go.
    void muteHeld();
    /// True while the press that is being delivered repeats a held key.
    bool isRepeat() const { return repeat_; }
    /// The stroke of a release: the stroke with which the key was pressed. Quick fingers let go of Alt before N, and
    /// Shift+2 may be let go as plain 2; what was meant was told by the press. A modifier key itself comes with the
    /// other modifiers that are held when it is let go.
    KeyStroke releaseStroke(const QKeyEvent& release) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Held {
        KeyStroke stroke;
        quint64 lastPress; ///< milliseconds of the toolkit's event clock
        bool mute;
    };
    bool pressed(QKeyEvent& event);
    bool released(const QKeyEvent& event);
    bool isStale(const QKeyEvent& event);
    void forgetLetGo();

    IsUp isUp_;

    std::map<quint64, Held> held_;
    KeyStroke lastReleased_;
    quint64 lastRelease_ = 0;
    quint64 latest_ = 0;
    bool repeat_ = false;
};
