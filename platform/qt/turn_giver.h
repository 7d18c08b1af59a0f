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
    /// True in an event that no loop over records waits for: what it starts doesn't run in the middle of such a loop.
    bool isAtRest() const;

private:
    EventGuard* guard_ = nullptr;
    int yieldingLevel_ = 0; ///< the event loop in whose handler the turn is being given; 0: nobody gives it
    TurnClock clock_;
};
