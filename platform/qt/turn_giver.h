#pragma once
// The event loop of the toolkit as a long loop sees it. main makes one; tests use a double that runs scripted actions.

#include "platform/event_loop.h"
#include "platform/posix/turn_clock.h"

class EventGuard;

/// Gives the turn when some milliseconds have passed since the last time.
class TurnGiver : public EventLoop {
public:
    /// Must be called before the first yield. The guard can't be had earlier: it is made with the shared state, which
    /// is made with a Platform that names this very object.
    void setGuard(EventGuard& guard) { guard_ = &guard; }

    void yield() override;

private:
    EventGuard* guard_ = nullptr;
    TurnClock clock_;
};
