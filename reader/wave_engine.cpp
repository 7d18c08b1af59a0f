#include "reader/wave_engine.h"

using std::chrono::steady_clock;

namespace {

constexpr std::chrono::seconds patienceWithSynthesis{3};
// A player that has everything still has to bring out what lies in its pipe and in the device.
constexpr std::chrono::seconds patienceWithOutput{10};
constexpr std::size_t mostWaitingSamples = 1u << 15;

} // namespace

WaveEngine::WaveEngine(std::unique_ptr<Synthesizer> synthesizer, SoundOutput& output, EventLog& log)
    : synthesizer_(std::move(synthesizer)), output_(output), log_(log) {
    if (!synthesizer_->isInstalled())
        state_ = State::absent;
}

void WaveEngine::prepare() {
    if (state_ != State::absent)
        synthesizer_->prepare();
}

void WaveEngine::speak(const std::string& text, int speed) {
    if (state_ == State::absent)
        return;
    text_ = text;
    speed_ = speed;
    beginText();
}

void WaveEngine::beginText() {
    stop();
    rest_ = text_;
    state_ = State::speaking;
    lastProgress_ = steady_clock::now();
    work(lastProgress_);
}

void WaveEngine::stop() {
    synthesis_.reset();
    output_.stop();
    samples_.clear();
    rest_ = {};
    isHeard_ = false;
    isGiven_ = false;
    saidAll_ = false;
    if (state_ != State::absent)
        state_ = State::idle;
}

void WaveEngine::work(TimePoint now) {
    while (state_ == State::speaking && passOn())
        lastProgress_ = now;
    if (state_ == State::speaking && now >= *deadline())
        giveUp(now);
}

/// Goes one step on; false if there is nothing to do before something happens.
bool WaveEngine::passOn() {
    if (output_.state() == SoundOutput::State::failed) {
        outputFailed();
        return true;
    }
    if (!samples_.empty())
        return passSamples();
    if (synthesis_)
        return takeSamples();
    if (!isGiven_)
        return beginPiece();
    if (output_.state() == SoundOutput::State::ending)
        return false;
    log_.add("end", "");
    stop();
    saidAll_ = true;
    toldSilence_ = false;
    return true;
}

bool WaveEngine::beginPiece() {
    const Text piece = takePiece(rest_);
    if (piece.empty()) {
        output_.finish();
        isGiven_ = true;
        return true;
    }
    const auto order = synthesizer_->orderFor(piece, speed_);
    if (!order) {
        fail();
        return true;
    }
    if (order->told.empty())
        return true;
    log_.add("kana", order->told);
    synthesis_ = ChildProcess::start(order->command, ChildProcess::Output::taken);
    wave_ = {};
    pieceHasSound_ = false;
    if (!synthesis_ || !synthesis_->write(order->input))
        fail();
    else
        synthesis_->closeInput();
    return true;
}

bool WaveEngine::passSamples() {
    if (output_.state() == SoundOutput::State::closed)
        output_.begin(wave_.rate());
    const std::size_t taken = output_.write(samples_);
    if (taken > 0 && !isHeard_) {
        isHeard_ = true;
        log_.add("sound", name());
    }
    samples_.erase(0, taken);
    return taken > 0 || output_.state() == SoundOutput::State::failed;
}

bool WaveEngine::takeSamples() {
    std::string bytes;
    const bool isOpen = synthesis_->read(bytes, mostWaitingSamples);
    if (!wave_.take(bytes, samples_)) {
        fail();
        return true;
    }
    pieceHasSound_ = pieceHasSound_ || !samples_.empty();
    return !bytes.empty() || (!isOpen && endPiece());
}

/// The synthesis has closed its output; true once it has ended too.
bool WaveEngine::endPiece() {
    const auto status = synthesis_->status();
    if (!status)
        return false;
    synthesis_.reset();
    if (*status != 0 || !pieceHasSound_)
        fail();
    return true;
}

void WaveEngine::giveUp(TimePoint now) {
    lastProgress_ = now;
    if (isWaitingForOutput())
        outputFailed();
    else
        fail();
}

void WaveEngine::fail() {
    stop();
    state_ = State::failed;
}

void WaveEngine::outputFailed() {
    if (output_.hasAnotherWay())
        return beginText();
    stop();
    if (!toldSilence_)
        log_.notice("no sound device takes the speech. 音を出せません。音の機器を確かめてください。");
    toldSilence_ = true;
}

void WaveEngine::watch(std::vector<pollfd>& watched) const {
    if (state_ != State::speaking)
        return;
    output_.watch(watched, !samples_.empty());
    if (synthesis_ && samples_.empty()) {
        watched.push_back({synthesis_->output(), POLLIN, 0});
        watched.push_back({synthesis_->ending(), POLLIN, 0});
    }
}

std::optional<TimePoint> WaveEngine::deadline() const {
    if (state_ != State::speaking)
        return std::nullopt;
    return lastProgress_ + (isWaitingForOutput() ? patienceWithOutput : patienceWithSynthesis);
}
