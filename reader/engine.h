#pragma once
// What can speak a text. The speaker drives one engine at a time through this interface and goes to the next when one
// gives up. An engine never waits for another program longer than some tenths of a second, and cuts off nothing but its
// own speech.

#include "reader/time_point.h"

#include <optional>
#include <poll.h>
#include <string>
#include <vector>

/// The slowest and the fastest speed, and the one at the start.
inline constexpr int slowestSpeed = 0;
inline constexpr int fastestSpeed = 9;
inline constexpr int usualSpeed = 4;

/// An engine.
class Engine {
public:
    enum class State {
        idle,     ///< nothing to say, or everything said
        speaking, ///< under way
        absent,   ///< is not installed on this machine, or has no Japanese voice
        failed,   ///< hangs, died or gave no sound; `speak` is another try
    };

    virtual ~Engine() = default;
    /// Its name, as the option --engine takes it.
    virtual std::string name() const = 0;
    /// Starts what takes time to start, so that the first text is spoken as fast as the others.
    virtual void prepare() = 0;
    /// Speaks a text in UTF-8 instead of what it is speaking now. `speed` is 0..9.
    virtual void speak(const std::string& text, int speed) = 0;
    /// Cuts off at once.
    virtual void stop() = 0;
    virtual State state() const = 0;
    /// True if the last text was brought out to its end: not cut off, not lost for want of a sound device.
    virtual bool hasSaidAll() const = 0;
    /// True once it is known whether the engine is there.
    virtual bool isDecided() const { return true; }
    /// Adds what wakes the engine up.
    virtual void watch(std::vector<pollfd>& watched) const = 0;
    /// When it wants to be called if nothing wakes it up.
    virtual std::optional<TimePoint> deadline() const = 0;
    /// Does whatever can be done without waiting.
    virtual void work(TimePoint now) = 0;
};
