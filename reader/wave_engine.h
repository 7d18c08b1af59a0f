#pragma once
// An engine made of a synthesizer and a sound output: it cuts the text into pieces, has each turned into sound by a
// process of its own, and passes the sound on as it arrives. Driven by the speaker. A long text costs no more memory
// than a short one beyond the text itself, and its first piece is heard as early.

#include "reader/engine.h"
#include "reader/event_log.h"
#include "reader/sound_output.h"
#include "reader/synthesizer.h"
#include "reader/wave_stream.h"

#include <memory>

/// Speaks by way of wave files.
class WaveEngine : public Engine {
public:
    WaveEngine(std::unique_ptr<Synthesizer> synthesizer, SoundOutput& output, EventLog& log);

    std::string name() const override { return synthesizer_->name(); }
    void prepare() override;
    void speak(const std::string& text, int speed) override;
    void stop() override;
    State state() const override { return state_; }
    bool hasSaidAll() const override { return saidAll_; }
    void watch(std::vector<pollfd>& watched) const override;
    std::optional<TimePoint> deadline() const override;
    void work(TimePoint now) override;

private:
    void beginText();
    bool beginPiece();
    bool passOn();
    bool passSamples();
    bool takeSamples();
    bool endPiece();
    void giveUp(TimePoint now);
    void fail();
    void outputFailed();
    bool isWaitingForOutput() const { return !samples_.empty() || isGiven_; }

    std::unique_ptr<Synthesizer> synthesizer_;
    SoundOutput& output_;
    EventLog& log_;
    State state_ = State::idle;
    std::string text_;
    std::string_view rest_; ///< what of the text has not been begun
    int speed_ = usualSpeed;
    std::optional<ChildProcess> synthesis_; ///< of the piece that is under way
    WaveReader wave_;
    bool pieceHasSound_ = false;
    std::string samples_;  ///< arrived and not yet taken by the output
    bool isHeard_ = false; ///< the output has taken some of the text
    bool saidAll_ = false;
    bool isGiven_ = false; ///< the output has all of it
    bool toldSilence_ = false;
    TimePoint lastProgress_{};
};
