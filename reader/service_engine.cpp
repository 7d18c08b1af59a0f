#include "reader/service_engine.h"

#include "platform/number_text.h"
#include "platform/utf8.h"
#include "reader/table_words.h"

#include <array>
#include <utility>

using std::chrono::steady_clock;

namespace {

// The service may have to be started first.
constexpr std::chrono::seconds patienceWithStart{4};
constexpr std::chrono::seconds patienceWithBeginning{3};
constexpr std::chrono::seconds patienceWithPiece{90};
constexpr std::chrono::milliseconds pauseBeforeRepeating{150};
constexpr std::array<int, 10> rates{-80, -60, -40, -20, 0, 20, 40, 60, 80, 100};
constexpr std::size_t mostAnswerBytes = 4096;

} // namespace

void ServiceEngine::prepare() {
    if (child_ || state_ == State::absent)
        return;
    // The service that the helper may start serves the whole desktop and must not end with the helper.
    child_ = ChildProcess::start(helper_, ChildProcess::Output::taken, ChildProcess::Scope::alone);
    if (!child_)
        return fail(State::absent);
    isReady_ = false;
    received_.clear();
    deadline_ = steady_clock::now() + patienceWithStart;
}

void ServiceEngine::speak(const std::string& text, int speed) {
    stop();
    prepare();
    if (state_ == State::absent)
        return;
    text_ = text;
    rest_ = text_;
    speed_ = speed;
    isHeard_ = false;
    saidAll_ = false;
    state_ = State::speaking;
    if (isReady_)
        sendNextPiece();
}

void ServiceEngine::stop() {
    if (state_ == State::absent)
        return;
    if (state_ == State::speaking && isReady_ && !child_->write("cancel\n"))
        return fail(State::idle);
    state_ = State::idle;
    rest_ = {};
    message_.clear();
    isWaitingToRepeat_ = false;
    if (isReady_)
        deadline_.reset();
}

void ServiceEngine::sendNextPiece() {
    const Text piece = takePiece(rest_);
    if (piece.empty()) {
        log_.add("end", "");
        saidAll_ = true;
        state_ = State::idle;
        deadline_.reset();
        return;
    }
    piece_ = toUtf8(piece);
    if (wantsKana_) {
        const auto words = mecab_.wordsOf(withTableReadings(piece));
        if (!words)
            return fail(State::failed);
        piece_ = toUtf8(kanaOf(*words));
        if (piece_.empty())
            return sendNextPiece();
    }
    log_.add("kana", piece_);
    sendPiece();
}

void ServiceEngine::sendPiece() {
    isWaitingToRepeat_ = false;
    message_.clear();
    ++unanswered_;
    deadline_ = steady_clock::now() + patienceWithBeginning;
    const std::string rate = toUtf8(plainNumber(rates.at(static_cast<std::size_t>(speed_))));
    if (!child_->write("say " + rate + " " + piece_ + "\n"))
        fail(State::failed);
}

void ServiceEngine::receive(std::string_view answer) {
    const std::size_t blank = answer.find(' ');
    const std::string_view word = answer.substr(0, blank);
    const std::string value(blank == std::string_view::npos ? "" : answer.substr(blank + 1));
    if (word == "absent" || (word == "ready" && value == "kana" && !Mecab::isInstalled()))
        return fail(State::absent);
    if (word == "ready") {
        isReady_ = true;
        wantsKana_ = value == "kana";
        deadline_.reset();
        if (state_ == State::speaking)
            sendNextPiece();
        return;
    }
    if (word == "begin")
        begun_ = value;
    else if (word == "end")
        ended_ = value;
    else if (word == "cancelled")
        cancelled_ = value;
    else if (word == "said" && --unanswered_ == 0)
        message_ = value;
    if (state_ == State::speaking && !message_.empty())
        goOn();
}

/// Acts on what is known of the piece under way; its number and the news of it come in any order.
void ServiceEngine::goOn() {
    if (message_ == "0")
        return fail(State::failed);
    if (message_ == begun_ && !std::exchange(isHeard_, true))
        log_.add("sound", name());
    if (message_ == begun_ && !isWaitingToRepeat_)
        deadline_ = steady_clock::now() + patienceWithPiece;
    if (message_ == ended_)
        return sendNextPiece();
    if (message_ == cancelled_ && !isWaitingToRepeat_) {
        isWaitingToRepeat_ = true;
        deadline_ = steady_clock::now() + pauseBeforeRepeating;
    }
}

void ServiceEngine::fail(State state) {
    child_.reset();
    isReady_ = false;
    unanswered_ = 0;
    message_.clear();
    isWaitingToRepeat_ = false;
    deadline_.reset();
    state_ = state;
}

void ServiceEngine::work(TimePoint now) {
    if (!child_)
        return;
    const bool isOpen = child_->read(received_, mostAnswerBytes);
    for (std::size_t end = received_.find('\n'); end != std::string::npos && child_; end = received_.find('\n')) {
        const std::string answer = received_.substr(0, end);
        received_.erase(0, end + 1);
        receive(answer);
    }
    if (child_ && isOpen && isWaitingToRepeat_ && *deadline_ <= now)
        sendPiece();
    else if (child_ && (!isOpen || received_.size() >= mostAnswerBytes || (deadline_ && *deadline_ <= now)))
        fail(State::failed);
}

void ServiceEngine::watch(std::vector<pollfd>& watched) const {
    if (child_)
        watched.push_back({child_->output(), POLLIN, 0});
}

std::optional<TimePoint> ServiceEngine::deadline() const {
    return deadline_;
}
