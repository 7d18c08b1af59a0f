#include "platform/qt/turn_giver.h"

#include "platform/qt/guard.h"

#include <QCoreApplication>

namespace {

/// Often enough that a stop button is obeyed at once, seldom enough that a loop over a million records doesn't notice.
constexpr qint64 turnEveryMilliseconds = 15;

} // namespace

void TurnGiver::yield() {
    if (sinceLastTurn_.isValid() && !sinceLastTurn_.hasExpired(turnEveryMilliseconds)) {
        return;
    }
    QCoreApplication::processEvents();
    sinceLastTurn_.start();
    guard_->throwPending();
}
