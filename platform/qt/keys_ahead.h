#pragma once
// Keys that are typed ahead of the window they are meant for. From the key that opens or closes a form until the desktop has
// given the keyboard to the next window, the X server sends what is typed to the window before, which can't take it, or to
// none; on a slow desktop that lasts a fifth of a second and more. Whoever types faster would lose the number behind the
// key that asks for it, without hearing of it. So these keys wait here, and the window that comes up gets them in their
// order. Where there is no X server no key ever waits.

#include "platform/keys_on_hold.h"

#include <QAbstractNativeEventFilter>
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

class Beeper;
class QWidget;
class TurnGiver;
struct NativeKey;

/// One for the program; it watches windows and keys and knows no form.
class KeysAhead : public QObject, public QAbstractNativeEventFilter {
    Q_OBJECT
public:
    /// `turns` says whether a long loop is at work, `beeper` tells of keys that nobody could be found for.
    KeysAhead(const TurnGiver& turns, Beeper& beeper);
    /// From now on windows and keys are watched. To be called behind whoever else watches keys: what waits must not be seen
    /// by them.
    void watch();

    /// True if the key of this scan code has been let go in what still waits.
    bool isReleaseWaiting(quint32 scanCode) const { return keys_.isReleaseWaiting(scanCode); }

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void hold();
    void handOn();
    void handOnToWork();
    void send(const RawKey& key);
    bool isWindowReady() const;
    QWidget* formOfWork() const;
    void giveUp(int presses);

    const TurnGiver& turns_;
    Beeper& beeper_;
    KeysOnHold keys_;
    QTimer timer_;
    QElapsedTimer clock_;
    QPointer<QWidget> awaited_;
    std::optional<RawKey> returning_; ///< sent to its window, not back from the X server yet
    KeysOnHold::Moment sent_ = 0;     ///< when it was
};
