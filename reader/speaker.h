#pragma once
// The engines in their order, and the one that speaks now. A text that an engine fails to speak is spoken by the next
// one, after a notice; when all have failed, the next text begins with the first again. Driven by the reader's loop.

#include "reader/engine.h"
#include "reader/event_log.h"

#include <memory>
#include <string>
#include <vector>

/// Speaks one text at a time; the newest cuts off the one before.
class Speaker {
public:
    /// `engines` in the order in which they are to be tried; `speed` is 0..9.
    Speaker(std::vector<std::unique_ptr<Engine>> engines, int speed, EventLog& log);

    /// Starts the first engine, so that the first text is spoken as fast as the others.
    void prepare();
    void speak(std::string text);
    void stop();
    void setSpeed(int speed) { speed_ = speed; }
    /// True while a text is being spoken.
    bool isSpeaking() const;
    /// True if the last text was brought out to its end.
    bool hasSaidAll() const { return !hasGivenUp() && engines_[current_]->hasSaidAll(); }
    /// True once it is known which engine speaks first.
    bool isDecided() const { return hasGivenUp() || engines_[current_]->isDecided(); }
    /// True if no engine is left for the present text.
    bool hasGivenUp() const { return current_ == engines_.size(); }

    void watch(std::vector<pollfd>& watched) const;
    std::optional<TimePoint> deadline() const;
    void work(TimePoint now);

private:
    void begin(const std::string& text);
    void announce();
    void replaceEngine();

    std::vector<std::unique_ptr<Engine>> engines_;
    std::size_t current_ = 0;
    int speed_;
    EventLog& log_;
    std::string text_;         ///< under way, or empty
    bool isAnnounced_ = false; ///< the log names the engine in use
};
