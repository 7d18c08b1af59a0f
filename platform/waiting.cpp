#include "platform/waiting.h"

#include "platform/failure.h"

void waitOnClock(Clock& clock, double seconds) {
    const double start = clock.secondsSinceMidnight();
    for (;;) {
        clock.shortSleep();
        const double now = clock.secondsSinceMidnight();
        if (now < start) {
            throw RuntimeFailure{FailureKind::overflow};
        }
        if (now - start >= seconds) {
            return;
        }
    }
}
