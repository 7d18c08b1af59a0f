#pragma once
// The desktop's speech service as an engine. The service's library may wait for a long time and starts threads, so it
// lives in a process of its own, the reader's helper (speech_service.h), and this engine only talks to that process.
// It cuts off by telling the service to cancel what the helper itself has said, and gives way to whatever else speaks
// through the service: a screen reader keeps its voice, and what it interrupts is said again behind it.

#include "reader/child_process.h"
#include "reader/engine.h"
#include "reader/event_log.h"
#include "reader/mecab.h"

/// Speaks through a helper process.
class ServiceEngine : public Engine {
public:
    /// `helper` is the command that starts the helper.
    ServiceEngine(std::vector<std::string> helper, EventLog& log) : helper_(std::move(helper)), log_(log) {}

    std::string name() const override { return "speechd"; }
    void prepare() override;
    void speak(const std::string& text, int speed) override;
    void stop() override;
    State state() const override { return state_; }
    bool hasSaidAll() const override { return saidAll_; }
    bool isDecided() const override { return isReady_ || !child_; }
    void watch(std::vector<pollfd>& watched) const override;
    std::optional<TimePoint> deadline() const override;
    void work(TimePoint now) override;

private:
    void sendNextPiece();
    void sendPiece();
    void receive(std::string_view answer);
    void goOn();
    void fail(State state);

    std::vector<std::string> helper_;
    EventLog& log_;
    Mecab mecab_;
    std::optional<ChildProcess> child_;
    State state_ = State::idle;
    bool isReady_ = false;
    bool wantsKana_ = false;
    bool saidAll_ = false;
    bool isHeard_ = false; ///< something of the text has been spoken
    std::string text_;
    std::string_view rest_;
    int speed_ = usualSpeed;
    std::string received_;
    int unanswered_ = 0;             ///< pieces whose number the service has not told yet
    std::string message_;            ///< the service's number of the piece under way; empty while unknown
    std::string begun_;              ///< the number of the last piece that was begun
    std::string cancelled_;          ///< and of the last that was cancelled, by whomever
    bool isWaitingToRepeat_ = false; ///< the piece gave way to another program and is said again at the deadline
    std::string piece_;              ///< under way, as the service is given it
    std::string ended_;              ///< and of the last that was ended
    std::optional<TimePoint> deadline_;
};
