#pragma once
// The engine that makes no sound: the text log alone speaks, to a braille display or a test. Always works.

#include "reader/engine.h"
#include "reader/event_log.h"

/// Ends each text as soon as it is begun.
class LogEngine : public Engine {
public:
    explicit LogEngine(EventLog& log) : log_(log) {}

    std::string name() const override { return "log"; }
    void prepare() override {}
    void speak(const std::string&, int) override { log_.add("end", ""); }
    void stop() override {}
    State state() const override { return State::idle; }
    bool hasSaidAll() const override { return true; }
    void watch(std::vector<pollfd>&) const override {}
    std::optional<TimePoint> deadline() const override { return std::nullopt; }
    void work(TimePoint) override {}

private:
    EventLog& log_;
};
