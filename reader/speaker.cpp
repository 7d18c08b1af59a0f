#include "reader/speaker.h"

#include <utility>

namespace {

constexpr const char* spokenNotice = "音声を切り替えました。";

} // namespace

Speaker::Speaker(std::vector<std::unique_ptr<Engine>> engines, int speed, EventLog& log)
    : engines_(std::move(engines)), speed_(speed), log_(log) {}

void Speaker::prepare() {
    if (hasGivenUp())
        return;
    engines_[current_]->prepare();
    if (engines_[current_]->state() == Engine::State::absent)
        replaceEngine();
}

void Speaker::speak(std::string text) {
    stop();
    text_ = std::move(text);
    if (hasGivenUp()) {
        current_ = 0;
        isAnnounced_ = false;
        prepare();
    }
    if (hasGivenUp())
        return;
    begin(text_);
    work(std::chrono::steady_clock::now());
}

void Speaker::begin(const std::string& text) {
    announce();
    engines_[current_]->speak(text, speed_);
}

/// Tells the log once which engine speaks, as soon as that is sure.
void Speaker::announce() {
    if (isAnnounced_ || !engines_[current_]->isDecided())
        return;
    log_.add("engine", engines_[current_]->name());
    isAnnounced_ = true;
}

void Speaker::stop() {
    text_.clear();
    if (!hasGivenUp())
        engines_[current_]->stop();
}

bool Speaker::isSpeaking() const {
    return !hasGivenUp() && !text_.empty();
}

void Speaker::work(TimePoint now) {
    while (!hasGivenUp()) {
        Engine& engine = *engines_[current_];
        engine.work(now);
        if (engine.state() == Engine::State::absent || engine.state() == Engine::State::failed) {
            replaceEngine();
            continue;
        }
        if (!text_.empty())
            announce();
        if (engine.state() == Engine::State::idle)
            text_.clear();
        return;
    }
}

void Speaker::replaceEngine() {
    const bool hasFailed = engines_[current_]->state() == Engine::State::failed;
    const std::string failed = engines_[current_]->name();
    engines_[current_]->stop();
    isAnnounced_ = false;
    for (++current_; !hasGivenUp(); ++current_) {
        engines_[current_]->prepare();
        if (engines_[current_]->state() != Engine::State::absent)
            break;
    }
    if (hasFailed && hasGivenUp())
        log_.notice("the engine " + failed + " does not work, and there is no other. 音声が使えなくなりました。");
    else if (hasFailed)
        log_.notice("the engine " + failed + " does not work; " + engines_[current_]->name() +
                    " takes its place. 音声を切り替えました。");
    if (hasGivenUp() || text_.empty())
        return;
    begin(hasFailed ? spokenNotice + text_ : text_);
}

void Speaker::watch(std::vector<pollfd>& watched) const {
    if (!hasGivenUp())
        engines_[current_]->watch(watched);
}

std::optional<TimePoint> Speaker::deadline() const {
    return hasGivenUp() ? std::nullopt : engines_[current_]->deadline();
}
