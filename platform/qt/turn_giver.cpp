#include "platform/qt/turn_giver.h"

#include "platform/qt/guard.h"

#include <QCoreApplication>
#include <QThread>

#include <utility>

void TurnGiver::yield() {
    if (!clock_.isDue()) {
        return;
    }
    const int outer = std::exchange(yieldingLevel_, QThread::currentThread()->loopLevel());
    QCoreApplication::processEvents();
    yieldingLevel_ = outer;
    clock_.restart();
    guard_->throwPending();
}

bool TurnGiver::isAtRest() const {
    // A form that a key opened in the middle of the loop has an event loop of its own.
    return yieldingLevel_ < QThread::currentThread()->loopLevel();
}
