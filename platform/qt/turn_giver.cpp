#include "platform/qt/turn_giver.h"

#include "platform/qt/guard.h"

#include <QCoreApplication>

void TurnGiver::yield() {
    if (!clock_.isDue()) {
        return;
    }
    QCoreApplication::processEvents();
    clock_.restart();
    guard_->throwPending();
}
