#pragma once
// The beep with which the program tells of an edge, a refusal or a failure.

/// The beep.
class Beeper {
public:
    virtual ~Beeper() = default;
    /// Beeps once and returns at once. Never fails.
    virtual void beep() = 0;
};
